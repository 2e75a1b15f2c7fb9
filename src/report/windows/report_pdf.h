#pragma once

#include <QByteArray>
#include <QPageLayout>

namespace halvorne {

/// Margins of the report's paper, millimetres.
inline constexpr double kReportMargin = 10;

/// What the report's document is called: the design's title, or what it is where that is empty.
QString ReportTitle();

/// Prints the report of the plot on show to a PDF document; returns the bytes of its file.
QByteArray ReportPdf(const QPageLayout& layout);

/// Prints the same and returns the record of its drawing, lines of JSON.
QByteArray ReportRecord(const QPageLayout& layout);

}  // namespace halvorne
