#pragma once

#include <string>
#include <string_view>

namespace halvorne {

/// Puts bytes in a file's place, whole or not at all: whoever opens the name finds the old content
/// or the new one, and a program that is killed leaves nothing behind. A symbolic link is followed,
/// and its target is made where it is missing; one that leads nowhere but in a circle is replaced.
/// The rights of a file that was there stay.
///
/// Where the folder takes no new file or guards its owner's, an existing one is overwritten in
/// place; room for the new content is found first, and a failure puts the old content back.
///
/// Raises std::system_error with the errno of the call that was refused; the name then has its old
/// content, or stands for nothing as before. What is no regular file is refused by EINVAL.
void WriteWholeFile(const std::string& fileName, std::string_view bytes);

}  // namespace halvorne
