#include "batch/report_files.h"

#include <QFile>
#include <QFileInfo>
#include <QPageLayout>
#include <vector>

#include "batch/output.h"
#include "batch/stops.h"
#include "platform/qt/page_images.h"
#include "platform/qt/text.h"
#include "plot/windows/plot_pictures.h"
#include "report/report_layout.h"
#include "report/windows/report_pdf.h"

namespace halvorne::batch {
namespace {

constexpr int kPictureDotsPerInch = 150;

QPageLayout LayoutOf(const std::string& paper) {
  const QPageSize size(paper == "Letter" ? QPageSize::Letter : QPageSize::A4);
  return {size,
          QPageLayout::Portrait,
          {kReportMargin, kReportMargin, kReportMargin, kReportMargin},
          QPageLayout::Millimeter};
}

/// Name of page `number`: "report-2.png" for "report.png".
std::string PageName(const std::string& file, std::size_t number) {
  const std::size_t point = file.rfind('.');
  return file.substr(0, point) + "-" + std::to_string(number) + file.substr(point);
}

void WritePages(const Session& session, const std::vector<QByteArray>& pages) {
  const std::string& file = session.request.out;
  std::vector<std::string> written;
  try {
    for (const QByteArray& page : pages) {
      const std::string name = pages.size() == 1 ? file : PageName(file, written.size() + 1);
      WriteFile(session, name, {page.constData(), static_cast<std::size_t>(page.size())});
      written.push_back(name);
    }
  } catch (...) {
    for (const std::string& name : written) {  // half a report is none
      QFile::remove(QFile::decodeName(name.c_str()));
    }
    throw;
  }
}

std::vector<QByteArray> PagesOfReport(const QPageLayout& layout) {
  PageImages paper(layout, kPictureDotsPerInch);
  PrintOn(paper);
  std::vector<QByteArray> pages;
  for (const QImage& page : paper.Pages()) {
    pages.push_back(PngOf(page));
  }
  return pages;
}

}  // namespace

ReportFormat ReportFormatOf(const std::string& fileName) {
  const QString ending = QFileInfo(ToQString(fileName)).suffix().toLower();
  if (ending == "pdf") {
    return ReportFormat::kPdf;
  }
  if (ending == "png") {
    return ReportFormat::kPng;
  }
  if (ending == "json") {
    return ReportFormat::kRecord;
  }
  throw WrongCommandLine("-o: a report's name ends in .pdf, .png or .json, not as " + fileName);
}

void WriteReport(const Session& session, ReportFormat format) {
  const QPageLayout layout = LayoutOf(session.request.paper);
  if (format == ReportFormat::kPng) {
    WritePages(session, PagesOfReport(layout));
    return;
  }
  const QByteArray bytes = format == ReportFormat::kPdf ? ReportPdf(layout) : ReportRecord(layout);
  WriteOutput(session, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

}  // namespace halvorne::batch
