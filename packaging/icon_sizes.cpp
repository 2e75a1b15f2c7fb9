// Renders the program's icon: icon_sizes ICON.svg FOLDER SIZE..., one SIZE.png each.

#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  const QStringList words = QCoreApplication::arguments();
  if (words.size() < 4) {
    std::fputs("usage: icon_sizes ICON.svg FOLDER SIZE...\n", stderr);
    return 2;
  }
  QSvgRenderer icon(words[1]);
  const QDir folder(words[2]);
  bool done = icon.isValid() && folder.mkpath(QStringLiteral("."));
  for (const QString& size : words.mid(3)) {
    QImage image(size.toInt(), size.toInt(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    icon.render(&painter);
    painter.end();
    done = image.save(folder.filePath(size + QStringLiteral(".png"))) && done;
  }
  if (!done) {
    std::fprintf(stderr, "icon_sizes: %s cannot be rendered\n", qPrintable(words[1]));
  }
  return done ? 0 : 1;
}
