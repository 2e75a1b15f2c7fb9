#pragma once

#include <string>

namespace halvorne {

/// True when the help collection that the program ships with is there to be shown.
bool HelpViewerInstalled();

/// Opens the help window, or brings it to the front.
/// @param contents  file with the collection's list of contents
/// @param search    show the search page instead of the contents
/// @param key       words to search for at once; empty waits for the user
void ShowHelpWindow(const std::string& contents, bool search, const std::string& key);

}  // namespace halvorne
