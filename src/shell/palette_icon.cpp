#include "shell/palette_icon.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPicture>
#include <QPixmap>

namespace halvorne {
namespace {

class DrawnIconEngine final : public QIconEngine {
 public:
  DrawnIconEngine(QString drawing, bool inTextColour)
      : drawing_(std::move(drawing)), inTextColour_(inTextColour) {}

  void paint(QPainter* painter, const QRect& place, QIcon::Mode mode,
             QIcon::State /*state*/) override {
    const QSizeF pixels = QSizeF(place.size()) * painter->device()->devicePixelRatioF();
    painter->drawImage(place, Image(pixels.toSize(), mode));
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State /*state*/) override {
    return QPixmap::fromImage(Image(size, mode));
  }

  QIconEngine* clone() const override { return new DrawnIconEngine(*this); }

 private:
  QImage Image(QSize size, QIcon::Mode mode) const {
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPicture drawing;
    if (!drawing.load(drawing_)) {
      return image;
    }
    QPainter painter(&image);
    painter.scale(static_cast<double>(size.width()) / drawing.boundingRect().width(),
                  static_cast<double>(size.height()) / drawing.boundingRect().height());
    drawing.play(&painter);
    if (inTextColour_) {
      const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
      painter.resetTransform();
      painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
      painter.fillRect(image.rect(), QGuiApplication::palette().color(group, QPalette::ButtonText));
    }
    return image;
  }

  QString drawing_;
  bool inTextColour_;
};

}  // namespace

QIcon PaletteIcon(const QString& drawing) {
  return QIcon(new DrawnIconEngine(drawing, true));
}

QIcon ColourIcon(const QString& drawing) {
  return QIcon(new DrawnIconEngine(drawing, false));
}

}  // namespace halvorne
