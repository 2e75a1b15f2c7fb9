#pragma once

#include <QObject>
#include <string>

namespace halvorne {

/// True when the help file that the program ships with is there to be shown.
bool HelpViewerInstalled();

/// Opens the help window, or brings it to the front.
/// @param file    the help file
/// @param search  show the search instead of the contents
/// @param key     words to search for at once; empty waits for the user
void ShowHelpWindow(const std::string& file, bool search, const std::string& key);

/// Opens the help window, or brings it to the front, at a topic.
/// @param file  the help file
/// @param name  objectName of a window or a command; one without a topic shows the contents
void ShowHelpTopic(const std::string& file, const QString& name);

/// Ends the help at once, with what it keeps on the disk.
void EndHelp();

/// Answers F1 as long as it lives: in any window of the program with the topic of that window, on
/// an entry of a menu with the topic of that command.
class HelpKey final : public QObject {
 public:
  HelpKey();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace halvorne
