#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "dialogs/entry_layout.h"
#include "dialogs/entry_state.h"
#include "dialogs/frm_face_entry.h"
#include "dialogs/large_dialog_layout.h"
#include "dialogs/material_browsers.h"
#include "engine/material_numbers.h"

// How the window of the plates looks; what it does stands in frm_face_entry.cpp.

namespace halvorne {
namespace {

std::vector<MaterialField<AcousticMaterial>> AcousticFields() {
  using Matl = AcousticMaterial;
  return {
      {&Matl::Name, "txtAcMatlName", "Material name"},
      {&Matl::Velocity, "txtAcLongVel", kVelocityNumber.caption, kVelocityNumber.unit, "###0.0"},
      {&Matl::ShearVelocity, "txtAcShearVel", "Shear velocity", "m/sec", "###0.0"},
      {&Matl::Density,
       "txtAcDensity",
       kDensityNumber.caption,
       kDensityNumber.unit,
       "###0.0",
       {kDensityNumber.lowest, "1", kDensityNumber.highest, "100000"}},
      {&Matl::Loss,
       "txtAcLoss",
       kLossNumber.caption,
       kLossNumber.unit,
       "###0.00",
       {kLossNumber.lowest, "0.00", kLossNumber.highest, "1000.00"}},
      {&Matl::LossFreq,
       "txtAcLossFreq",
       kLossFreqNumber.caption,
       kLossFreqNumber.unit,
       "#0.0000",
       {kLossFreqNumber.lowest, "0.0000", kLossFreqNumber.highest, "100000.0000"},
       "lblLossFreqUnit"},
      {&Matl::LossExp,
       "txtAcLossExp",
       kLossExpNumber.caption,
       kLossExpNumber.unit,
       "#0.0000",
       {kLossExpNumber.lowest, "0.0000", kLossExpNumber.highest, "5.0000"}},
      {&Matl::Vendor, "txtAcVendor", "Vendor"},
      {&Matl::Formula, "txtAcFormula", "Formula"},
      {&Matl::Comments, "txtAcComments", "Comments"},
      {&Matl::DataSource, "txtAcDataSource", "Data source"},
  };
}

}  // namespace

frmFaceEntry::frmFaceEntry(QWidget* parent)
    : ModalDialog("frmFaceEntry", QString(), parent), material("frmFaceEntry", AcousticFields()) {
  const bool fromBrowser = entry.AcDBReturn;
  cmdFaceOK = Named(new QPushButton(QStringLiteral("OK")), "cmdFaceOK");
  cmdFaceCancel = Named(new QPushButton(QStringLiteral("Cancel")), "cmdFaceCancel");
  for (int i = 0; i < 3; ++i) {
    CmdView[i] = Named(MakePageButton(i), "CmdView", i);
  }
  KeepPlaceWhenHidden(CmdView[1]);
  dispersion.Make(MakeDispersionLayers());
  LayOutLargeDialog(this, CmdView, {MakeThicknessPage(), MakeMaterialPage(), dispersion.Frame()},
                    pages, cmdFaceOK, cmdFaceCancel);
  ConnectEvents();
  SetKeyboardOrder();
  Form_Load();
  QWidget* const firstRow =
      draft.TmpNoPlates >= 1 ? static_cast<QWidget*>(txtFaceArea.front()) : CmdFaceNumberUP;
  (fromBrowser ? material.Fields().front().box : firstRow)->setFocus();
}

QWidget* frmFaceEntry::MakeCountRow() {
  lblNumAcLayers = Named(new QLabel, "lblNumAcLayers");
  txtNFace = Named(new QLineEdit, "txtNFace");
  txtNFace->setAccessibleName(QStringLiteral("Number of plates"));
  CmdFaceNumberUP =
      Named(new ArrowButton(Qt::UpArrow, QStringLiteral("Add a plate")), "CmdFaceNumberUP");
  CmdFaceNumberDown = Named(new ArrowButton(Qt::DownArrow, QStringLiteral("Remove the last plate")),
                            "CmdFaceNumberDown");
  chkAcVelDisp = Named(new QCheckBox(QStringLiteral("Velocity dispersion")), "chkAcVelDisp");
  auto* const line = new QWidget;
  auto* const row = new QHBoxLayout(line);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(lblNumAcLayers);
  row->addWidget(new NumberStepper(txtNFace, CmdFaceNumberUP, CmdFaceNumberDown));
  row->addStretch();
  row->addWidget(chkAcVelDisp);
  return line;
}

void frmFaceEntry::MakePlateRow(QGridLayout* grid, int index) {
  const auto i = static_cast<std::size_t>(index);
  const QString plate = QStringLiteral("Plate %1 ").arg(index + 1);
  lblFaceNum.at(i) = Named(new QLabel(QString::number(index + 1)), "lblFaceNum", index);
  lblFaceMatl.at(i) = Named(new ElidingLabel(Qt::ElideRight, 34), "lblFaceMatl", index);
  lblZ.at(i) = Named(new QLabel, "lblZ", index);
  lblZ.at(i)->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  txtFaceArea.at(i) = Named(new QLineEdit, "txtFaceArea", index);
  txtFaceLambda.at(i) = Named(new QLineEdit, "txtFaceLambda", index);
  txtFaceMM.at(i) = Named(new QLineEdit, "txtFaceMM", index);
  txtFaceArea.at(i)->setAccessibleName(plate + QStringLiteral("relative area"));
  txtFaceLambda.at(i)->setAccessibleName(plate + QStringLiteral("thickness in lambdas at Fd"));
  txtFaceMM.at(i)->setAccessibleName(plate + QStringLiteral("thickness in mm"));
  int column = 0;
  for (QWidget* control : std::initializer_list<QWidget*>{
           lblFaceNum.at(i), lblFaceMatl.at(i), lblZ.at(i), AsNumberBox(txtFaceArea.at(i), 9),
           AsNumberBox(txtFaceLambda.at(i), 12), AsNumberBox(txtFaceMM.at(i), 12)}) {
    KeepPlaceWhenHidden(control);
    control->hide();
    grid->addWidget(control, index + 1, column++);
  }
}

QGridLayout* frmFaceEntry::MakePlateRows() {
  auto* const grid = new QGridLayout;
  grid->setHorizontalSpacing(12);
  grid->setVerticalSpacing(3);
  const char* const headings[] = {"Material", "Longit. Z MRayls", "Rel. Area",
                                  "Thickness in Lambdas at Fd", "Thickness in mm"};
  for (int i = 0; i < 5; ++i) {
    auto* const heading = new QLabel(QString::fromLatin1(headings[i]));
    if (i > 0) {
      heading->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }
    grid->addWidget(heading, 0, i + 1);
  }
  for (int index = 0; index < kMaxPlates; ++index) {
    MakePlateRow(grid, index);
  }
  grid->setColumnStretch(1, 1);
  return grid;
}

QFrame* frmFaceEntry::MakeThicknessPage() {
  const auto [frame, column] = MakeLargePage("FrameThick", QStringLiteral("Thickness"));
  lblFdes = Named(new QLabel, "lblFdes");
  column->addWidget(lblFdes);
  column->addWidget(MakeCountRow());
  column->addLayout(MakePlateRows());
  column->addStretch();
  return frame;
}

QFrame* frmFaceEntry::MakeMaterialPage() {
  const auto [frame, column] = MakeLargePage("FrameMaterial", QStringLiteral("Material"));
  txtMatlLayer = Named(new QLineEdit, "txtMatlLayer");
  txtMatlLayer->setAccessibleName(QStringLiteral("Plate whose material is shown"));
  CmdMatlLayerUp =
      Named(new ArrowButton(Qt::UpArrow, QStringLiteral("Next plate")), "CmdMatlLayerUp");
  CmdMatlLayerDown =
      Named(new ArrowButton(Qt::DownArrow, QStringLiteral("Plate before")), "CmdMatlLayerDown");
  auto* const grid = new QGridLayout;
  material.LayOut(grid);
  cmdOpenAcousticDB = Named(new QPushButton(QStringLiteral("Open Database")), "cmdOpenAcousticDB");
  cmdOpenAcousticDB->setEnabled(materialBrowsers().ShowAcousticDB != nullptr);
  LayOutMaterialPage(column,
                     CaptionedStepper(QStringLiteral("Layer"), nullptr, txtMatlLayer,
                                      CmdMatlLayerUp, CmdMatlLayerDown),
                     grid, material.Velocities().MakeDerivedFrame("Frame1"), cmdOpenAcousticDB);
  return frame;
}

QWidget* frmFaceEntry::MakeDispersionLayers() {
  TxtCurrentLayer = Named(new QLineEdit, "TxtCurrentLayer");
  TxtCurrentLayer->setAccessibleName(QStringLiteral("Plate whose dispersion file is shown"));
  CmdLayerUp = Named(new ArrowButton(Qt::UpArrow, QStringLiteral("Next plate")), "CmdLayerUp");
  CmdLayerDown =
      Named(new ArrowButton(Qt::DownArrow, QStringLiteral("Plate before")), "CmdLayerDown");
  return CaptionedStepper(QStringLiteral("Current layer"), "Label8", TxtCurrentLayer, CmdLayerUp,
                          CmdLayerDown);
}

void frmFaceEntry::ConnectPlateRow(int index) {
  const auto i = static_cast<std::size_t>(index);
  OnChange(txtFaceArea.at(i), &frmFaceEntry::txtFaceArea_Change, index);
  OnLeave(txtFaceArea.at(i), &frmFaceEntry::txtFaceArea_LostFocus);
  OnReach(txtFaceLambda.at(i), &frmFaceEntry::txtFaceLambda_GotFocus);
  OnChange(txtFaceLambda.at(i), &frmFaceEntry::txtFaceLambda_Change, index);
  OnLeave(txtFaceLambda.at(i), &frmFaceEntry::txtFaceLambda_LostFocus);
  OnReach(txtFaceMM.at(i), &frmFaceEntry::txtFaceMM_GotFocus);
  OnChange(txtFaceMM.at(i), &frmFaceEntry::txtFaceMM_Change, index);
  OnLeave(txtFaceMM.at(i), &frmFaceEntry::txtFaceMM_LostFocus);
}

void frmFaceEntry::ConnectEvents() {
  for (int i = 0; i < 3; ++i) {
    OnClick(CmdView[i], &frmFaceEntry::CmdView_Click, i);
  }
  for (int index = 0; index < kMaxPlates; ++index) {
    ConnectPlateRow(index);
  }
  for (const MaterialField<AcousticMaterial>& field : material.Fields()) {
    connect(field.box, &QLineEdit::textChanged, this, [this, &field] { Field_Change(field); });
  }
  connect(chkAcVelDisp, &QCheckBox::toggled, this, &frmFaceEntry::chkAcVelDisp_Click);
  OnClick(CmdFaceNumberUP, &frmFaceEntry::CmdFaceNumberUP_Click);
  OnClick(CmdFaceNumberDown, &frmFaceEntry::CmdFaceNumberDown_Click);
  OnClick(CmdMatlLayerUp, &frmFaceEntry::CmdMatlLayerUp_Click);
  OnClick(CmdMatlLayerDown, &frmFaceEntry::CmdMatlLayerDown_Click);
  OnClick(CmdLayerUp, &frmFaceEntry::CmdLayerUp_Click);
  OnClick(CmdLayerDown, &frmFaceEntry::CmdLayerDown_Click);
  OnClick(dispersion.Button(), &frmFaceEntry::CmdLoadFile_Click);
  OnClick(cmdOpenAcousticDB, &frmFaceEntry::cmdOpenAcousticDB_Click);
  OnClick(cmdFaceOK, &frmFaceEntry::cmdFaceOK_Click);
  OnClick(cmdFaceCancel, &frmFaceEntry::cmdFaceCancel_Click);
  SetCancelButton(cmdFaceCancel);
}

void frmFaceEntry::SetKeyboardOrder() {
  std::vector<QWidget*> order{CmdView[0],      CmdView[1],        CmdView[2],
                              CmdFaceNumberUP, CmdFaceNumberDown, chkAcVelDisp};
  for (std::size_t i = 0; i < kMaxPlates; ++i) {
    order.insert(order.end(), {txtFaceArea.at(i), txtFaceLambda.at(i), txtFaceMM.at(i)});
  }
  order.insert(order.end(), {CmdMatlLayerUp, CmdMatlLayerDown});
  for (const MaterialField<AcousticMaterial>& field : material.Fields()) {
    order.push_back(field.box);
  }
  order.insert(order.end(), {cmdOpenAcousticDB, CmdLayerUp, CmdLayerDown, dispersion.Button(),
                             cmdFaceOK, cmdFaceCancel});
  LeadTabThrough(order);
}

}  // namespace halvorne
