// What a desktop is told about the program.

#include <QDir>
#include <QFile>
#include <QImage>
#include <QMimeDatabase>
#include <QSettings>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include "persistence/version.h"

namespace halvorne::testing {
namespace {

const QString kSource = QStringLiteral(HALVORNE_SOURCE_DIR);
const QString kMade = QStringLiteral(HALVORNE_BINARY_DIR "/packaging");

QString ReadText(const QString& path) {
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
  return QString::fromUtf8(file.readAll());
}

/// The database of types as a desktop has it after the installation.
class MimeType : public ::testing::Test {
 protected:
  MimeType() {
    const QString packages = folder_.filePath(QStringLiteral("mime/packages"));
    QDir().mkpath(packages);
    QFile::copy(kSource + QStringLiteral("/packaging/halvorne.xml"),
                packages + QStringLiteral("/halvorne.xml"));
    qputenv("XDG_DATA_DIRS", folder_.path().toLocal8Bit());
    qputenv("XDG_DATA_HOME", folder_.path().toLocal8Bit());
  }

  std::string TypeOf(const QString& path) const {
    return types_.mimeTypeForFile(path).name().toStdString();
  }

 private:
  QTemporaryDir folder_;
  QMimeDatabase types_;
};

TEST_F(MimeType, IsThatOfDesignsAndOfNoOtherFile) {
  const QDir designs(kSource + QStringLiteral("/share/DATA"));
  int found = 0;
  for (const QFileInfo& file : designs.entryInfoList({QStringLiteral("*.dat")})) {
    EXPECT_EQ(TypeOf(file.filePath()), "application/x-halvorne-design")
        << file.fileName().toStdString();
    ++found;
  }
  EXPECT_GT(found, 3);
  QTemporaryDir folder;
  const QString other = folder.filePath(QStringLiteral("other.dat"));
  QFile file(other);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("measured on Monday\r\n\"Halvorne for Windows Version 4.1.0\"\r\n");
  file.close();
  EXPECT_NE(TypeOf(other), "application/x-halvorne-design") << "only the first line counts";
}

TEST(DesktopEntry, StartsTheProgramWithADesign) {
  const QSettings entry(kSource + QStringLiteral("/packaging/org.halvorne.halvorne.desktop"),
                        QSettings::IniFormat);
  const auto value = [&](const char* key) {
    return entry.value(QStringLiteral("Desktop Entry/") + QLatin1String(key)).toString();
  };
  EXPECT_EQ(value("Exec"), QStringLiteral("halvorne %f"));
  EXPECT_EQ(value("Icon"), QStringLiteral("halvorne"));
  EXPECT_TRUE(ReadText(kSource + QStringLiteral("/packaging/org.halvorne.halvorne.desktop"))
                  .contains(QStringLiteral("MimeType=application/x-halvorne-design;")));
}

TEST(PackagedIcon, HasTheSizesThatDesktopsAskFor) {
  for (const int size : {16, 22, 24, 32, 48, 64, 128, 256, 512}) {
    const QImage icon(kMade + QStringLiteral("/icons/%1.png").arg(size));
    EXPECT_EQ(icon.size(), QSize(size, size));
    EXPECT_LT(qAlpha(icon.pixel(0, 0)), 128) << "its corners are round";
    EXPECT_EQ(qAlpha(icon.pixel(size / 2, size / 2)), 255) << size << " is empty";
  }
}

// One version in all places: what a change of the number would forget.
TEST(PackageTexts, NameTheVersionOfTheProgram) {
  const QString version = QString::fromStdString(ProgramVersion());
  EXPECT_TRUE(ReadText(kSource + QStringLiteral("/packaging/debian/changelog"))
                  .startsWith(QStringLiteral("halvorne (%1)").arg(version)));
  EXPECT_TRUE(ReadText(kSource + QStringLiteral("/packaging/halvorne.1"))
                  .contains(QStringLiteral("Halvorne ") + version));
  EXPECT_TRUE(ReadText(kSource + QStringLiteral("/packaging/org.halvorne.halvorne.metainfo.xml"))
                  .contains(QStringLiteral("<release version=\"%1\"").arg(version)));
  EXPECT_TRUE(ReadText(kMade + QStringLiteral("/halvorne-batch.1"))
                  .contains(QStringLiteral("Halvorne ") + version));
}

TEST(PackageTexts, CaptionEveryScreenshot) {
  const QString text =
      ReadText(kSource + QStringLiteral("/packaging/org.halvorne.halvorne.metainfo.xml"));
  const auto shots = text.count(QStringLiteral("</screenshot>"));
  EXPECT_GE(shots, 2);
  EXPECT_EQ(text.count(QStringLiteral("<caption>")), shots);
}

}  // namespace
}  // namespace halvorne::testing
