#include "dialogs/dispersion_page.h"

#include <QHBoxLayout>

#include "dialogs/large_dialog_layout.h"
#include "engine/design_model.h"
#include "platform/paths.h"
#include "platform/qt/text.h"

namespace halvorne {
namespace {

/// A label that shows the user's own words, as many lines as they need.
QLabel* MakeWordsLabel(const char* name) {
  auto* const label = new QLabel;
  label->setObjectName(QString::fromLatin1(name));
  label->setTextFormat(Qt::PlainText);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  label->setWordWrap(true);
  label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  return label;
}

void ShowWords(QLabel* label, const std::string& words) {
  label->setText(ToQString(words));
  label->setToolTip(label->text().toHtmlEscaped());
}

}  // namespace

void DispersionPage::Make(QWidget* layers) {
  const auto [frame, column] = MakeLargePage("FrameDispersion", QStringLiteral("Dispersion"));
  FrameDispersion = frame;
  if (layers != nullptr) {
    column->addWidget(layers);
  }
  Label10 = new QLabel;
  Label10->setObjectName(QStringLiteral("Label10"));
  column->addWidget(Label10);
  LblFilename = MakeWordsLabel("LblFilename");
  column->addWidget(LblFilename);
  LblComment = MakeWordsLabel("LblComment");
  column->addWidget(LblComment);
  CmdLoadFile = new QPushButton(QStringLiteral("Select File"));
  CmdLoadFile->setObjectName(QStringLiteral("CmdLoadFile"));
  auto* const row = new QHBoxLayout;
  row->addWidget(CmdLoadFile);
  row->addStretch();
  column->addLayout(row);
  column->addStretch();
}

void DispersionPage::SetLayerCaption(const std::string& caption) {
  Label10->setText(ToQString(caption));
}

void DispersionPage::ShowNames(int slot) {
  const std::string& comment = design.VelDispNames(slot, 1);
  if (comment.empty()) {
    ShowEmpty();
    return;
  }
  ShowWords(LblComment, "Comment : " + comment);
  ShowWords(LblFilename, "FileName : " + design.VelDispNames(slot, 0));
}

void DispersionPage::ShowEmpty() {
  ShowWords(LblComment, "Empty");
  ShowWords(LblFilename, "");
}

std::string DispersionPage::ChooseFile(QWidget* owner) {
  CMDialog.InitDir = ProgramPath("\\Velocity dispersion").string();
  CMDialog.Filter = "All Files (*.*)|*.*|Data Files (*.csv)|*.csv";
  CMDialog.FilterIndex = 2;
  CMDialog.DialogTitle = "File Open";
  CMDialog.FileName = "";
  CMDialog.ShowOpen(owner);
  return CMDialog.FileName;
}

void BackUpDispersion(std::span<const int> chainSlots) {
  for (const int slot : chainSlots) {
    draft.VelDispBackup.rows(slot) = design.VelDisp.rows(slot);
    draft.VelDispNamesBackup.rows(slot) = design.VelDispNames.rows(slot);
  }
}

void RestoreDispersion(std::span<const int> chainSlots) {
  for (const int slot : chainSlots) {
    design.VelDisp.rows(slot) = draft.VelDispBackup.rows(slot);
    design.VelDispNames.rows(slot) = draft.VelDispNamesBackup.rows(slot);
  }
}

}  // namespace halvorne
