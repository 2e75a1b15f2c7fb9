#include "dialogs/dispersion_page.h"

#include <QHBoxLayout>

#include "dialogs/large_dialog_layout.h"
#include "engine/design_model.h"
#include "platform/paths.h"
#include "platform/qt/eliding_label.h"
#include "platform/qt/text.h"

namespace halvorne {
namespace {

/// A label for the user's own words, however long they are.
ElidingLabel* MakeWordsLabel(const char* name, Qt::TextElideMode mode) {
  auto* const label = new ElidingLabel(mode);
  label->setObjectName(QString::fromLatin1(name));
  return label;
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
  LblFilename = MakeWordsLabel("LblFilename", Qt::ElideMiddle);
  column->addWidget(LblFilename);
  LblComment = MakeWordsLabel("LblComment", Qt::ElideRight);
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
  design.VelDispNames(slot, 1).empty() ? ShowEmpty() : ShowFile(slot);
}

void DispersionPage::ShowFile(int slot) {
  LblComment->setText(ToQString("Comment : " + design.VelDispNames(slot, 1)));
  LblFilename->setText(ToQString("FileName : " + design.VelDispNames(slot, 0)));
}

void DispersionPage::ShowEmpty() {
  LblComment->setText(ToQString("Empty"));
  LblFilename->clear();
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
