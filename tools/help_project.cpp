// Lays the pages of the help into a folder with the project from which the collection generator
// makes the help file: help_project PAGES FOLDER
//
// PAGES holds the pages, the list of contents and the style sheet; FOLDER has the pictures already.

#include <QDir>
#include <QFile>
#include <QSet>
#include <QXmlStreamWriter>
#include <cstdio>
#include <map>
#include <stdexcept>

#include "help_pages.h"

namespace halvorne::tools {
namespace {

constexpr const char* kContents = "contents.html";
constexpr const char* kStyle = "help.css";

[[noreturn]] void Fail(const QString& what) {
  throw std::runtime_error(what.toStdString());
}

/// The pages and what must hold for all of them together.
class Project {
 public:
  Project(const QDir& pages, const QDir& folder) : source_(pages), folder_(folder) {
    for (const QString& file : pages.entryList({QStringLiteral("*.html")}, QDir::Files)) {
      pages_.emplace(file, ReadHelpPage(pages.filePath(file)));
    }
    sections_ = ReadHelpContents(pages.filePath(QLatin1String(kContents)));
  }

  void Check() const {
    QSet<QString> listed{QLatin1String(kContents)};
    CheckListed(sections_, listed);
    QSet<QString> names;
    for (const auto& [file, page] : pages_) {
      if (!listed.contains(file)) {
        Fail(QStringLiteral("%1: the page is not in %2").arg(file, QLatin1String(kContents)));
      }
      for (const QString& name : NamesOf(page)) {
        if (names.contains(name)) {
          Fail(QStringLiteral("%1: a second topic of %2").arg(file, name));
        }
        names.insert(name);
      }
      for (const QString& link : page.links) {
        CheckLink(page, link);
      }
      for (const QString& picture : page.pictures) {
        if (!folder_.exists(picture)) {
          Fail(QStringLiteral("%1: the picture %2 is missing").arg(file, picture));
        }
      }
    }
  }

  void Write() const {
    QStringList files{QLatin1String(kStyle)};
    for (const auto& [file, page] : pages_) {
      files.append(file);
      files.append(page.pictures);
    }
    WriteFile(QLatin1String(kStyle), ReadFile(source_.filePath(QLatin1String(kStyle))));
    for (const auto& [file, page] : pages_) {
      const QString picture = PictureOf(page);
      if (!picture.isEmpty()) {
        files.append(picture);
      }
      WriteFile(file, Completed(ReadFile(source_.filePath(file)), picture));
    }
    files.removeDuplicates();
    QByteArray project;
    WriteProject(project, files);
    WriteFile(QStringLiteral("halvorne.qhp"), project);
  }

 private:
  static QByteArray ReadFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
      Fail(QStringLiteral("%1 cannot be read").arg(path));
    }
    return file.readAll();
  }

  void WriteFile(const QString& name, const QByteArray& bytes) const {
    QFile file(folder_.filePath(name));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
        file.write(bytes) != bytes.size()) {
      Fail(QStringLiteral("%1 cannot be written").arg(file.fileName()));
    }
  }

  /// The picture of the window or plot that a page is the topic of, empty when there is none.
  QString PictureOf(const HelpPage& page) const {
    for (const QString& name : page.names) {
      QString picture = QStringLiteral("pictures/%1.png").arg(name);
      if (folder_.exists(picture) && !page.pictures.contains(picture)) {
        return picture;
      }
    }
    return {};
  }

  /// A page with what the program says and shows of itself: its picture below the heading, and in
  /// place of @file@ the text of that file.
  QByteArray Completed(QByteArray page, const QString& picture) const {
    constexpr const char* heading = "</h1>\n";
    if (!picture.isEmpty()) {
      page.replace(heading,
                   heading + QStringLiteral("<p><img src=\"%1\"/></p>\n").arg(picture).toUtf8());
    }
    for (const QString& text : folder_.entryList({QStringLiteral("*.txt")}, QDir::Files)) {
      const QByteArray mark = '@' + text.toUtf8() + '@';
      if (page.contains(mark)) {
        const QString words = QString::fromUtf8(ReadFile(folder_.filePath(text)));
        page.replace(mark, words.toHtmlEscaped().toUtf8());
      }
    }
    return page;
  }

  static QStringList NamesOf(const HelpPage& page) {
    QStringList names = page.names;
    for (const HelpAnchor& anchor : page.anchors) {
      names.append(anchor.name);
    }
    return names;
  }

  void CheckListed(const std::vector<HelpSection>& sections, QSet<QString>& listed) const {
    for (const HelpSection& section : sections) {
      if (pages_.count(section.file) == 0) {
        Fail(QStringLiteral("%1: there is no page %2").arg(QLatin1String(kContents), section.file));
      }
      if (listed.contains(section.file)) {
        Fail(QStringLiteral("%1: %2 stands there twice")
                 .arg(QLatin1String(kContents), section.file));
      }
      listed.insert(section.file);
      CheckListed(section.sections, listed);
    }
  }

  void CheckLink(const HelpPage& page, const QString& link) const {
    const QString file = link.startsWith(u'#') ? page.file : link.section(u'#', 0, 0);
    const QString anchor = link.section(u'#', 1);
    const auto target = pages_.find(file);
    bool found = target != pages_.end() && anchor.isEmpty();
    if (target != pages_.end()) {
      for (const HelpAnchor& place : target->second.anchors) {
        found = found || place.name == anchor;
      }
    }
    if (!found) {
      Fail(QStringLiteral("%1: the link %2 leads nowhere").arg(page.file, link));
    }
  }

  void WriteSections(QXmlStreamWriter& xml, const std::vector<HelpSection>& sections) const {
    for (const HelpSection& section : sections) {
      xml.writeStartElement(QStringLiteral("section"));
      xml.writeAttribute(QStringLiteral("title"), pages_.at(section.file).title);
      xml.writeAttribute(QStringLiteral("ref"), section.file);
      WriteSections(xml, section.sections);
      xml.writeEndElement();
    }
  }

  static void WriteKeyword(QXmlStreamWriter& xml, const QString& word, const QString& id,
                           const QString& place) {
    xml.writeEmptyElement(QStringLiteral("keyword"));
    xml.writeAttribute(QStringLiteral("name"), word);
    if (!id.isEmpty()) {
      xml.writeAttribute(QStringLiteral("id"), id);
    }
    xml.writeAttribute(QStringLiteral("ref"), place);
  }

  void WriteKeywords(QXmlStreamWriter& xml) const {
    for (const auto& [file, page] : pages_) {
      for (const QString& word : page.keywords) {
        WriteKeyword(xml, word, {}, file);
      }
      for (const QString& name : page.names) {
        WriteKeyword(xml, page.title, name, file);
      }
      for (const HelpAnchor& anchor : page.anchors) {
        WriteKeyword(xml, anchor.title, anchor.name, file + u'#' + anchor.name);
      }
    }
  }

  void WriteProject(QByteArray& out, const QStringList& files) const {
    QXmlStreamWriter xml(&out);
    xml.setAutoFormatting(true);
    xml.writeStartDocument();
    xml.writeStartElement(QStringLiteral("QtHelpProject"));
    xml.writeAttribute(QStringLiteral("version"), QStringLiteral("1.0"));
    xml.writeTextElement(QStringLiteral("namespace"), QStringLiteral("halvorne"));
    xml.writeTextElement(QStringLiteral("virtualFolder"), QStringLiteral("help"));
    xml.writeStartElement(QStringLiteral("filterSection"));
    xml.writeStartElement(QStringLiteral("toc"));
    WriteSections(xml, sections_);
    xml.writeEndElement();
    xml.writeStartElement(QStringLiteral("keywords"));
    WriteKeywords(xml);
    xml.writeEndElement();
    xml.writeStartElement(QStringLiteral("files"));
    for (const QString& file : files) {
      xml.writeTextElement(QStringLiteral("file"), file);
    }
    xml.writeEndElement();
    xml.writeEndElement();
    xml.writeEndElement();
    xml.writeEndDocument();
  }

  QDir source_;
  QDir folder_;
  std::map<QString, HelpPage> pages_;
  std::vector<HelpSection> sections_;
};

}  // namespace
}  // namespace halvorne::tools

int main(int argc, char** argv) try {
  if (argc != 3) {
    std::fputs("usage: help_project PAGES FOLDER\n", stderr);
    return 2;
  }
  const halvorne::tools::Project project(QDir(QFile::decodeName(argv[1])),
                                         QDir(QFile::decodeName(argv[2])));
  project.Check();
  project.Write();
  return 0;
} catch (const std::exception& failed) {
  std::fprintf(stderr, "help_project: %s\n", failed.what());
  return 1;
}
