// What the build says of pages that are not in order.

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace halvorne::testing {
namespace {

class HelpProject : public ::testing::Test {
 protected:
  HelpProject() {
    QDir(folder_.path()).mkdir(QStringLiteral("out"));
    Write("help.css", "h1 { }\n");
    WriteContents("<li><a href=\"a.html\">A</a></li><li><a href=\"b.html\">B</a></li>");
    WritePage("a.html", "<h2 id=\"mnuA\">A</h2>");
    WritePage("b.html", "<p><a href=\"a.html#mnuA\">to A</a></p>");
  }

  void Write(const char* name, const QString& text) const {
    QFile file(folder_.filePath(QLatin1String(name)));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(text.toUtf8());
  }
  void WritePage(const char* name, const QString& body, const QString& head = {}) const {
    Write(name, QStringLiteral("<html><head><title>%1</title>%2</head><body>%3</body></html>")
                    .arg(QLatin1String(name), head, body));
  }
  void WriteContents(const QString& entries) const {
    WritePage("contents.html", QStringLiteral("<ul>%1</ul>").arg(entries));
  }

  /// What the tool says, empty when it is content.
  std::string Complaint() const {
    QProcess tool;
    tool.start(QStringLiteral(HALVORNE_BINARY_DIR "/tools/help_project"),
               {folder_.path(), folder_.filePath(QStringLiteral("out"))});
    EXPECT_TRUE(tool.waitForFinished());
    const QByteArray said = tool.readAllStandardError();
    EXPECT_EQ(tool.exitCode() != 0, !said.isEmpty());
    return said.toStdString();
  }

  QTemporaryDir folder_;
};

TEST_F(HelpProject, TakesPagesInOrder) {
  EXPECT_EQ(Complaint(), "");
  EXPECT_TRUE(QFile::exists(folder_.filePath(QStringLiteral("out/halvorne.qhp"))));
  EXPECT_TRUE(QFile::exists(folder_.filePath(QStringLiteral("out/b.html"))));
}

TEST_F(HelpProject, TellsOfALinkThatLeadsNowhere) {
  WritePage("b.html", "<a href=\"c.html\">c</a>");
  EXPECT_NE(Complaint().find("b.html: the link c.html leads nowhere"), std::string::npos);
  WritePage("b.html", "<a href=\"a.html#mnuB\">c</a>");
  EXPECT_NE(Complaint().find("b.html: the link a.html#mnuB leads nowhere"), std::string::npos);
  WritePage("b.html", "<a href=\"https://a.example/\">c</a>");
  EXPECT_NE(Complaint().find("leads nowhere"), std::string::npos) << "pages lead to pages only";
}

TEST_F(HelpProject, TellsOfASecondTopicOfOneName) {
  WritePage("b.html", "<p/>", "<meta name=\"topic\" content=\"frmB  mnuA\"/>");
  EXPECT_NE(Complaint().find("b.html: a second topic of mnuA"), std::string::npos);
}

TEST_F(HelpProject, TellsOfAPageThatIsNotInTheContents) {
  WriteContents("<li><a href=\"a.html\">A</a></li>");
  EXPECT_NE(Complaint().find("b.html: the page is not in contents.html"), std::string::npos);
}

TEST_F(HelpProject, TellsOfAnEntryOfTheContentsWithoutAPage) {
  QFile::remove(folder_.filePath(QStringLiteral("b.html")));
  EXPECT_NE(Complaint().find("contents.html: there is no page b.html"), std::string::npos);
}

TEST_F(HelpProject, TellsOfAPictureThatIsMissing) {
  WritePage("b.html", "<img src=\"pictures/none.png\"/>");
  EXPECT_NE(Complaint().find("b.html: the picture pictures/none.png is missing"),
            std::string::npos);
}

TEST_F(HelpProject, TellsWhereAPageIsNotWellFormed) {
  Write("b.html", "<html>\n<head>\n<title>B</title>\n</head><body><p></body></html>");
  EXPECT_NE(Complaint().find("b.html:4: "), std::string::npos);
}

TEST_F(HelpProject, PutsAPictureAndTheProgramsWordsIntoAPage) {
  Write("out/words.txt", "a < b\n");
  QDir(folder_.path()).mkpath(QStringLiteral("out/pictures"));
  Write("out/pictures/frmB.png", "picture");
  WritePage("b.html", "<h1>B</h1>\n<pre>@words.txt@</pre>",
            "<meta name=\"topic\" content=\"frmB\"/>");
  EXPECT_EQ(Complaint(), "");
  QFile page(folder_.filePath(QStringLiteral("out/b.html")));
  ASSERT_TRUE(page.open(QIODevice::ReadOnly));
  const QByteArray text = page.readAll();
  EXPECT_TRUE(text.contains("<h1>B</h1>\n<p><img src=\"pictures/frmB.png\"/></p>"));
  EXPECT_TRUE(text.contains("<pre>a &lt; b\n</pre>"));
}

}  // namespace
}  // namespace halvorne::testing
