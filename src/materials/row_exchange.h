#pragma once

#include <QString>
#include <QStringList>
#include <vector>

namespace halvorne {

/// Rows as spreadsheets exchange them: cells apart by tabs, a line a row. A cell with a tab, a line
/// end or a double quote in it stands in double quotes, which are doubled inside.
QString RowsText(const std::vector<QStringList>& rows);

/// The rows of such a text, with whatever line ends. An empty line is no row.
std::vector<QStringList> RowsOfText(const QString& text);

}  // namespace halvorne
