#include "shell/palette_icon.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QSvgRenderer>

namespace halvorne {
namespace {

class PaletteIconEngine final : public QIconEngine {
 public:
  explicit PaletteIconEngine(QString drawing) : drawing_(std::move(drawing)) {}

  void paint(QPainter* painter, const QRect& place, QIcon::Mode mode,
             QIcon::State /*state*/) override {
    QFile file(drawing_);
    if (!file.open(QIODevice::ReadOnly)) {
      return;
    }
    const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    const QColor colour = QGuiApplication::palette().color(group, QPalette::ButtonText);
    QSvgRenderer(file.readAll().replace("currentColor", colour.name().toLatin1()))
        .render(painter, place);
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap image(size);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    paint(&painter, QRect({0, 0}, size), mode, state);
    return image;
  }

  QIconEngine* clone() const override { return new PaletteIconEngine(*this); }

 private:
  QString drawing_;
};

}  // namespace

QIcon PaletteIcon(const QString& drawing) {
  return QIcon(new PaletteIconEngine(drawing));
}

}  // namespace halvorne
