#include "help_pages.h"

#include <QFile>
#include <QFileInfo>
#include <QXmlStreamReader>
#include <stdexcept>

namespace halvorne::tools {
namespace {

/// The elements of a page, one after the other.
class PageReader {
 public:
  explicit PageReader(const QString& path) : file_(path) {
    if (!file_.open(QIODevice::ReadOnly)) {
      throw std::runtime_error((path + ": cannot be read").toStdString());
    }
    xml_.setDevice(&file_);
  }

  /// Goes on to the next token; false at the end of the page.
  bool Next() {
    xml_.readNext();
    if (xml_.hasError()) {
      Fail(xml_.errorString());
    }
    return !xml_.atEnd();
  }
  bool Starts(const char* element) const {
    return xml_.isStartElement() && xml_.name() == QLatin1String(element);
  }
  bool Ends(const char* element) const {
    return xml_.isEndElement() && xml_.name() == QLatin1String(element);
  }
  bool StartsHeading() const {
    return xml_.isStartElement() && xml_.name().size() == 2 && xml_.name().startsWith(u'h') &&
           xml_.name().back().isDigit();
  }
  QString Attribute(const char* name) const {
    return xml_.attributes().value(QLatin1String(name)).toString();
  }
  QString Text() {
    return xml_.readElementText(QXmlStreamReader::IncludeChildElements).simplified();
  }

  [[noreturn]] void Fail(const QString& what) const {
    throw std::runtime_error(QStringLiteral("%1:%2: %3")
                                 .arg(file_.fileName())
                                 .arg(xml_.lineNumber())
                                 .arg(what)
                                 .toStdString());
  }

 private:
  QFile file_;
  QXmlStreamReader xml_;
};

QStringList Words(const QString& text, const char* separator) {
  QStringList words;
  for (const QString& word : text.split(QLatin1String(separator), Qt::SkipEmptyParts)) {
    words.append(word.simplified());
  }
  return words;
}

void ReadMeta(const PageReader& reader, HelpPage& page) {
  const QString content = reader.Attribute("content");
  if (reader.Attribute("name") == QStringLiteral("topic")) {
    page.names = Words(content.simplified(), " ");
  } else if (reader.Attribute("name") == QStringLiteral("keywords")) {
    page.keywords = Words(content, ";");
  }
}

/// A list of contents up to its end.
std::vector<HelpSection> ReadList(PageReader& reader) {
  std::vector<HelpSection> sections;
  while (reader.Next() && !reader.Ends("ul")) {
    if (reader.Starts("a")) {
      sections.push_back({reader.Attribute("href"), {}});
    } else if (reader.Starts("ul")) {
      if (sections.empty()) {
        reader.Fail(QStringLiteral("a list stands beneath no page"));
      }
      sections.back().sections = ReadList(reader);
    }
  }
  return sections;
}

}  // namespace

HelpPage ReadHelpPage(const QString& path) {
  HelpPage page;
  page.file = QFileInfo(path).fileName();
  PageReader reader(path);
  while (reader.Next()) {
    if (reader.Starts("meta")) {
      ReadMeta(reader, page);
    } else if (reader.Starts("title")) {
      page.title = reader.Text();
    } else if (reader.Starts("a")) {
      page.links.append(reader.Attribute("href"));
    } else if (reader.Starts("img")) {
      page.pictures.append(reader.Attribute("src"));
    } else if (reader.StartsHeading() && !reader.Attribute("id").isEmpty()) {
      const QString name = reader.Attribute("id");
      page.anchors.push_back({name, reader.Text()});
    }
  }
  if (page.title.isEmpty()) {
    reader.Fail(QStringLiteral("the page has no title"));
  }
  return page;
}

std::vector<HelpSection> ReadHelpContents(const QString& path) {
  PageReader reader(path);
  while (reader.Next()) {
    if (reader.Starts("ul")) {
      return ReadList(reader);
    }
  }
  reader.Fail(QStringLiteral("there is no list of contents"));
}

}  // namespace halvorne::tools
