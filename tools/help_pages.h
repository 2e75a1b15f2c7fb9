#pragma once

#include <QString>
#include <QStringList>
#include <vector>

namespace halvorne::tools {

/// A place of a page that a link or the program leads to.
struct HelpAnchor {
  QString name;   ///< its id; the objectName of a command where it is the topic of one
  QString title;  ///< text of the heading that carries it
};

/// What a page of the help says about itself.
struct HelpPage {
  QString file;  ///< name without folder
  QString title;
  QStringList names;     ///< windows, plots and commands whose topic the whole page is
  QStringList keywords;  ///< words that lead to it in the index
  std::vector<HelpAnchor> anchors;
  QStringList links;     ///< places it leads to, as written
  QStringList pictures;  ///< files it shows, as written
};

/// A page in the list of contents, with those beneath it.
struct HelpSection {
  QString file;
  std::vector<HelpSection> sections;
};

/// Reads a page, which must be well-formed.
///
/// @param path  its file
/// @return what it holds; raises std::runtime_error with file and line when it is no page
HelpPage ReadHelpPage(const QString& path);

/// Reads the list of contents: nested lists whose entries are links to pages.
std::vector<HelpSection> ReadHelpContents(const QString& path);

}  // namespace halvorne::tools
