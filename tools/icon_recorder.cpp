// Records SVG drawings as the painting that they stand for, so that the program shows them without
// a reader of SVG: icon_recorder FOLDER DRAWING.svg..., one DRAWING.pic each.

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPainter>
#include <QPicture>
#include <QSvgRenderer>
#include <cstdio>

namespace {

bool Record(const QString& drawing, const QString& picture) {
  QFile file(drawing);
  if (!file.open(QIODevice::ReadOnly)) {
    return false;
  }
  // The colour that the program gives an icon lies over what is black.
  QSvgRenderer renderer(file.readAll().replace("currentColor", "#000000"));
  QPicture recorded;
  recorded.setBoundingRect(renderer.viewBox());
  QPainter painter(&recorded);
  renderer.render(&painter, renderer.viewBoxF());
  return painter.end() && renderer.isValid() && recorded.save(picture);
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  const QStringList words = QCoreApplication::arguments();
  const QDir folder(words.value(1));
  folder.mkpath(QStringLiteral("."));
  for (const QString& drawing : words.mid(2)) {
    const QString name = QFileInfo(drawing).completeBaseName() + QStringLiteral(".pic");
    if (!Record(drawing, folder.filePath(name))) {
      std::fprintf(stderr, "icon_recorder: %s cannot be recorded\n", qPrintable(drawing));
      return 1;
    }
  }
  return 0;
}
