#include "dialogs/frm_acoust_load.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "dialogs/entry_layout.h"
#include "engine/acoustic_sections.h"
#include "engine/design_model.h"
#include "persistence/complex_load_file.h"
#include "platform/file_failure.h"
#include "platform/number_text.h"
#include "platform/paths.h"
#include "platform/qt/eliding_label.h"
#include "plot/plot_select.h"

namespace halvorne {
namespace {

constexpr std::int16_t kComplex = 1;
constexpr double kMegaRayl = 1000000;

}  // namespace

frmAcoustLoad::frmAcoustLoad(QWidget* parent)
    : ModalDialog("frmAcoustLoad", QStringLiteral("Acoustic Terminations"), parent) {
  back = {Named(new QLineEdit, "txtAcoustBackZ"),
          Named(new QLabel(QStringLiteral("MRayls")), "lblRearAcoustUnit"),
          {Named(new QRadioButton(QStringLiteral("Real")), "OptBackLoad", 0),
           Named(new QRadioButton(QStringLiteral("Complex")), "OptBackLoad", 1)},
          Named(new QPushButton(QStringLiteral("Select File")), "CmdLoadBackComplex"),
          Named(new ElidingLabel(Qt::ElideMiddle), "lblRearFilename"),
          Named(new ElidingLabel(Qt::ElideRight), "lblRearCmt")};
  front = {Named(new QLineEdit, "txtAcoustFrontZ"),
           Named(new QLabel(QStringLiteral("MRayls")), "lblFrontAcoustUnit"),
           {Named(new QRadioButton(QStringLiteral("Real")), "OptFrontLoad", 0),
            Named(new QRadioButton(QStringLiteral("Complex")), "OptFrontLoad", 1)},
           Named(new QPushButton(QStringLiteral("Select File")), "CmdLoadFrontComplex"),
           Named(new ElidingLabel(Qt::ElideMiddle), "lblFrontFilename"),
           Named(new ElidingLabel(Qt::ElideRight), "lblFrontCmt")};
  auto* const outer = new QVBoxLayout(this);
  outer->addWidget(MakeSide(
      Named(new QGroupBox(QStringLiteral("Rear Medium (Acoustic Backing)")), "Frame2"), back));
  outer->addWidget(MakeSide(
      Named(new QGroupBox(QStringLiteral("Front Medium (Acoustic Load)")), "Frame1"), front));

  cmdAcoustTermOK = Named(new QPushButton(QStringLiteral("OK")), "cmdAcoustTermOK");
  cmdAcoustTermCancel = Named(new QPushButton(QStringLiteral("Cancel")), "cmdAcoustTermCancel");
  outer->addLayout(ClosingRow(cmdAcoustTermOK, cmdAcoustTermCancel));

  for (int i = 0; i < 2; ++i) {
    OnChoice(back.option[i], &frmAcoustLoad::OptBackLoad_Click, i);
    OnChoice(front.option[i], &frmAcoustLoad::OptFrontLoad_Click, i);
  }
  OnClick(back.select, &frmAcoustLoad::CmdLoadBackComplex_Click);
  OnClick(front.select, &frmAcoustLoad::CmdLoadFrontComplex_Click);
  OnClick(cmdAcoustTermOK, &frmAcoustLoad::cmdAcoustTermOK_Click);
  OnClick(cmdAcoustTermCancel, &frmAcoustLoad::cmdAcoustTermCancel_Click);
  SetCancelButton(cmdAcoustTermCancel);
  Form_Load();
  back.value->setFocus();
}

QGroupBox* frmAcoustLoad::MakeSide(QGroupBox* frame, const Side& side) {
  auto* const column = new QVBoxLayout(frame);
  auto* const values = new QHBoxLayout;
  side.value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  side.value->setAccessibleName(frame->title());
  values->addWidget(side.value);
  values->addWidget(side.unit);
  values->addSpacing(16);
  values->addWidget(side.option[0]);
  values->addWidget(side.option[1]);
  side.select->setAccessibleName(side.select->text() + QStringLiteral(", ") + frame->title());
  values->addWidget(side.select);
  column->addLayout(values);
  for (QLabel* label : {side.fileName, side.comment}) {
    KeepPlaceWhenHidden(label);
    column->addWidget(label);
  }
  return frame;
}

void frmAcoustLoad::ShowLabels(const Side& side, bool visible) {
  side.fileName->setVisible(visible);
  side.comment->setVisible(visible);
}

void frmAcoustLoad::ShowFile(const Side& side, const std::string& fileName,
                             const std::string& comment) {
  side.fileName->setText(ToQString("File name: " + fileName));
  side.comment->setText(ToQString("Comment: " + comment));
  ShowLabels(side, true);
}

void frmAcoustLoad::LoadSide(const Side& side, bool isComplex, const std::string& fileName,
                             const std::string& comment) {
  side.select->setEnabled(isComplex);
  side.option[isComplex ? 1 : 0]->setChecked(true);
  ShowLabels(side, isComplex);
  if (isComplex) {
    ShowFile(side, fileName, comment);
  }
}

void frmAcoustLoad::Form_Load() try {
  loading = true;
  Centre();
  SetBoxText(front.value, Format(design.ZFrontLoad / kMegaRayl, "##0.##0"));
  SetBoxText(back.value, Format(design.ZBackLoad / kMegaRayl, "##0.##0"));
  LoadSide(front, design.ZFrontComplex, design.ZFrontFile, design.ZFrontComment);
  LoadSide(back, design.ZBackComplex, design.ZBackFile, design.ZBackComment);
  loading = false;
} catch (...) {
  loading = false;
  ReportFailure("Form_Load", "frmAcoustLoad");
}

void frmAcoustLoad::OptBackLoad_Click(int index) try {
  if (loading) {
    return;
  }
  design.ZBackComplex = index == kComplex;
  back.select->setEnabled(design.ZBackComplex);
  if (!design.ZBackComplex) {
    design.ZBackFile.clear();
  } else if (draft.LastBackLoadOption != kComplex) {
    CmdLoadBackComplex_Click();
  }
  ShowLabels(back, design.ZBackComplex);
  draft.LastBackLoadOption = static_cast<std::int16_t>(index);
} catch (...) {
  ReportFailure("OptBackLoad_Click", "frmAcoustLoad");
}

void frmAcoustLoad::OptFrontLoad_Click(int index) try {
  if (loading) {
    return;
  }
  // Kept: the rear side forgets its file name when it becomes real, the front side keeps it here.
  design.ZFrontComplex = index == kComplex;
  front.select->setEnabled(design.ZFrontComplex);
  if (design.ZFrontComplex && draft.LastFrontLoadOption != kComplex) {
    CmdLoadFrontComplex_Click();
  }
  ShowLabels(front, design.ZFrontComplex);
  draft.LastFrontLoadOption = static_cast<std::int16_t>(index);
} catch (...) {
  ReportFailure("OptFrontLoad_Click", "frmAcoustLoad");
}

std::string frmAcoustLoad::ChooseFile() {
  CmDialogX.InitDir = ProgramPath("\\Acoustic loads").string();
  CmDialogX.Filter = "Acoustic load Files (*.lac)|*.lac|All Files (*.*)|*.*";
  CmDialogX.FilterIndex = 1;
  CmDialogX.DialogTitle = "File Open";
  CmDialogX.FileName.clear();
  CmDialogX.ShowOpen(this);
  return CmDialogX.FileName;
}

void frmAcoustLoad::CmdLoadBackComplex_Click() try {
  design.ZBackFile = ChooseFile();
  ReadRearLoadFile(design.ZBackFile);
  ShowFile(back, design.ZBackFile, design.ZBackComment);
} catch (...) {
  ReportFileFailure("Load Back Complex");
}

void frmAcoustLoad::CmdLoadFrontComplex_Click() try {
  design.ZFrontFile = ChooseFile();
  ReadFrontLoadFile(design.ZFrontFile);
  ShowFile(front, design.ZFrontFile, design.ZFrontComment);
} catch (...) {
  ReportFileFailure("Load Front Complex");
}

void frmAcoustLoad::cmdAcoustTermOK_Click() try {
  design.ZFrontLoad = Finite(BoxValue(front.value) * kMegaRayl);
  design.ZBackLoad = Finite(BoxValue(back.value) * kMegaRayl);
  CmplxLoad();
  Recalc();
  Unload();
} catch (...) {
  ReportFailure("cmdAcoustTermOK_Click", "frmAcoustLoad");
}

void frmAcoustLoad::cmdAcoustTermCancel_Click() try { Unload(); } catch (...) {
  ReportFailure("cmdAcoustTermCancel_Click", "frmAcoustLoad");
}

}  // namespace halvorne
