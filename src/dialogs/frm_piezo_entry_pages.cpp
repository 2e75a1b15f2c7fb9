#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "dialogs/entry_layout.h"
#include "dialogs/entry_state.h"
#include "dialogs/frm_piezo_entry.h"
#include "dialogs/large_dialog_layout.h"
#include "dialogs/material_browsers.h"
#include "engine/material_numbers.h"

// How the window of the piezoelectric layers looks; what it does stands in frm_piezo_entry.cpp.

namespace halvorne {
namespace {

std::vector<MaterialField<PiezoMaterial>> PiezoFields() {
  using Matl = PiezoMaterial;
  return {
      {&Matl::Name, "txtPZMatlName", "Material name"},
      {&Matl::Velocity, "txtPZLongVel", kVelocityNumber.caption, kVelocityNumber.unit, "###0"},
      {&Matl::ShearVelocity, "txtPZShearVel", "Shear velocity", "m/sec", "###0"},
      {&Matl::Density,
       "txtPZDensity",
       kDensityNumber.caption,
       kDensityNumber.unit,
       "###0",
       {kDensityNumber.lowest, "1", kDensityNumber.highest, "100000"}},
      {&Matl::Ks,
       "txtPZDielConst",
       kKsNumber.caption,
       kKsNumber.unit,
       "###0.00",
       {kKsNumber.lowest, "1.00", kKsNumber.highest, "1000000.00"}},
      {&Matl::Kt,
       "txtPZCoupling",
       kKtNumber.caption,
       kKtNumber.unit,
       "0.0000",
       {kKtNumber.lowest, "0.0000", kKtNumber.highest, "0.9999"}},
      // Kept: the corrections of the two tangents differ in their number of decimals.
      {&Matl::TanDe,
       "txtPZTanDe",
       kTanDeNumber.caption,
       kTanDeNumber.unit,
       "0.00000",
       {kTanDeNumber.lowest, "0.00000", kTanDeNumber.highest, "1.00000"}},
      {&Matl::TanDm,
       "txtPZTanDm",
       kTanDmNumber.caption,
       kTanDmNumber.unit,
       "0.00000",
       {kTanDmNumber.lowest, "0.0000", kTanDmNumber.highest, "1.0000"}},
      {&Matl::Vendor, "txtPZVendor", "Vendor"},
      {&Matl::DataSource, "txtPZDataSource", "Data source"},
  };
}

}  // namespace

frmPiezoEntry::frmPiezoEntry(QWidget* parent)
    : ModalDialog("frmPiezoEntry", QStringLiteral("Piezoelectric Layers"), parent),
      material("frmPiezoEntry", PiezoFields()) {
  cmdPiezoOK = Named(new QPushButton(QStringLiteral("OK")), "cmdPiezoOK");
  cmdPiezoCancel = Named(new QPushButton(QStringLiteral("Cancel")), "cmdPiezoCancel");
  for (int i = 0; i < 3; ++i) {
    CmdView[i] = Named(MakePageButton(i), "CmdView", i);
  }
  dispersion.Make(nullptr);
  LayOutLargeDialog(this, CmdView, {MakeThicknessPage(), MakeMaterialPage(), dispersion.Frame()},
                    pages, cmdPiezoOK, cmdPiezoCancel);
  dispersion.SetLayerCaption("Current PZT Layer");
  ConnectEvents();
  SetKeyboardOrder();
  Form_Load();
  (entry.PZDBReturn ? material.Fields().front().box : txtPZLambda[0])->setFocus();
}

QGroupBox* frmPiezoEntry::MakeCountFrame() {
  optPiezoNum[0] = Named(new QRadioButton(QStringLiteral("One")), "optPiezoNum", 0);
  optPiezoNum[1] = Named(new QRadioButton(QStringLiteral("Two")), "optPiezoNum", 1);
  fraNumPiezoLyr =
      Named(OptionsFrame(QStringLiteral("Number of piezoelectric layers:"), optPiezoNum),
            "fraNumPiezoLyr");
  return fraNumPiezoLyr;
}

QGroupBox* frmPiezoEntry::MakeConnectionFrame() {
  optPZConnect[0] = Named(new QRadioButton(QStringLiteral("Series")), "optPZConnect", 0);
  optPZConnect[1] = Named(new QRadioButton(QStringLiteral("Parallel")), "optPZConnect", 1);
  fraConnection =
      Named(OptionsFrame(QStringLiteral("Electrical connection:"), optPZConnect), "fraConnection");
  KeepPlaceWhenHidden(fraConnection);
  return fraConnection;
}

void frmPiezoEntry::MakeLayerRow(QGridLayout* grid, int index) {
  const QString layer = index == 0 ? QStringLiteral("Rear") : QStringLiteral("Front");
  lblPiezoNum[index] = Named(new QLabel(layer), "lblPiezoNum", index);
  lblPZName[index] = Named(new ElidingLabel(Qt::ElideRight, 34), "lblPZName", index);
  txtPZLambda[index] = Named(new QLineEdit, "txtPZLambda", index);
  txtPZmm[index] = Named(new QLineEdit, "txtPZmm", index);
  txtPZpolar[index] =
      Named(new ClickBox(layer + QStringLiteral(" polarity +/-")), "txtPZpolar", index);
  txtPZLambda[index]->setAccessibleName(layer + QStringLiteral(" thickness in lambdas at Fd"));
  txtPZmm[index]->setAccessibleName(layer + QStringLiteral(" thickness in mm"));
  txtPZpolar[index]->setAlignment(Qt::AlignCenter);
  txtPZpolar[index]->setFixedWidth(fontMetrics().averageCharWidth() * 8);
  int column = 0;
  for (QWidget* control : std::initializer_list<QWidget*>{
           lblPiezoNum[index], lblPZName[index], AsNumberBox(txtPZLambda[index], 12),
           AsNumberBox(txtPZmm[index], 12), txtPZpolar[index]}) {
    KeepPlaceWhenHidden(control);
    grid->addWidget(control, index + 1, column++);
  }
}

QFrame* frmPiezoEntry::MakeThicknessPage() {
  const auto [frame, column] = MakeLargePage("FrameThickness", QStringLiteral("Thickness"));
  auto* const frequencies = Named(new QGroupBox(QStringLiteral("Frequencies")), "Frame1");
  auto* const labels = new QVBoxLayout(frequencies);
  lblFd = Named(new QLabel, "lblFd");
  lblFp = Named(new QLabel, "lblFp");
  labels->addWidget(lblFd);
  labels->addWidget(lblFp);
  column->addWidget(frequencies);
  chkPZVelDisp = Named(new QCheckBox(QStringLiteral("Velocity dispersion")), "chkPZVelDisp");
  column->addWidget(chkPZVelDisp);
  auto* const choices = new QHBoxLayout;
  choices->addWidget(MakeCountFrame());
  choices->addWidget(MakeConnectionFrame());
  choices->addStretch();
  column->addLayout(choices);

  auto* const grid = new QGridLayout;
  grid->setHorizontalSpacing(12);
  lblNoPzLayers = Named(new QLabel(QStringLiteral("Layer")), "lblNoPzLayers");
  KeepPlaceWhenHidden(lblNoPzLayers);
  grid->addWidget(lblNoPzLayers, 0, 0);
  const char* const headings[] = {"Thickness in Lambdas at Fd", "Thickness in mm", "Polarity +/-"};
  for (int i = 0; i < 3; ++i) {
    auto* const heading = new QLabel(QString::fromLatin1(headings[i]));
    heading->setAlignment((i < 2 ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    grid->addWidget(heading, 0, i + 2);
  }
  MakeLayerRow(grid, 0);
  MakeLayerRow(grid, 1);
  grid->setColumnStretch(1, 1);
  column->addLayout(grid);
  column->addStretch();
  return frame;
}

QFrame* frmPiezoEntry::MakeMaterialPage() {
  const auto [frame, column] = MakeLargePage("FrameMaterial", QStringLiteral("Material"));
  optPZLayer[0] = Named(new QRadioButton(QStringLiteral("Rear")), "optPZLayer", 0);
  optPZLayer[1] = Named(new QRadioButton(QStringLiteral("Front")), "optPZLayer", 1);
  fraPZLayer = Named(OptionsFrame(QStringLiteral("Piezoelectric layer"), optPZLayer), "fraPZLayer");
  KeepPlaceWhenHidden(fraPZLayer);
  auto* const grid = new QGridLayout;
  material.LayOut(grid);
  cmdOpenPiezoDB = Named(new QPushButton(QStringLiteral("Open Database")), "cmdOpenPiezoDB");
  cmdOpenPiezoDB->setEnabled(materialBrowsers().ShowPiezoDB != nullptr);
  LayOutMaterialPage(column, fraPZLayer, grid, material.Velocities().MakeDerivedFrame("Frame2"),
                     cmdOpenPiezoDB);
  return frame;
}

void frmPiezoEntry::ConnectEvents() {
  for (int i = 0; i < 3; ++i) {
    OnClick(CmdView[i], &frmPiezoEntry::CmdView_Click, i);
  }
  for (int i = 0; i < 2; ++i) {
    OnChoice(optPiezoNum[i], &frmPiezoEntry::optPiezoNum_Click, i);
    OnChoice(optPZConnect[i], &frmPiezoEntry::optPZConnect_Click, i);
    OnChoice(optPZLayer[i], &frmPiezoEntry::optPZLayer_Click, i);
    OnReach(txtPZLambda[i], &frmPiezoEntry::txtPZLambda_GotFocus);
    OnChange(txtPZLambda[i], &frmPiezoEntry::txtPZLambda_Change, i);
    OnLeave(txtPZLambda[i], &frmPiezoEntry::txtPZLambda_LostFocus);
    OnReach(txtPZmm[i], &frmPiezoEntry::txtPZmm_GotFocus);
    OnChange(txtPZmm[i], &frmPiezoEntry::txtPZmm_Change, i);
    OnLeave(txtPZmm[i], &frmPiezoEntry::txtPZmm_LostFocus);
    txtPZpolar[i]->OnClick([this, i] { txtPZpolar_Click(i); });
  }
  for (const MaterialField<PiezoMaterial>& field : material.Fields()) {
    connect(field.box, &QLineEdit::textChanged, this, [this, &field] { Field_Change(field); });
  }
  connect(chkPZVelDisp, &QCheckBox::toggled, this, &frmPiezoEntry::chkPZVelDisp_Click);
  OnClick(dispersion.Button(), &frmPiezoEntry::CmdLoadFile_Click);
  OnClick(cmdOpenPiezoDB, &frmPiezoEntry::cmdOpenPiezoDB_Click);
  OnClick(cmdPiezoOK, &frmPiezoEntry::cmdPiezoOK_Click);
  OnClick(cmdPiezoCancel, &frmPiezoEntry::cmdPiezoCancel_Click);
  SetCancelButton(cmdPiezoCancel);
}

void frmPiezoEntry::SetKeyboardOrder() {
  std::vector<QWidget*> order{CmdView[0],     CmdView[1],     CmdView[2],      chkPZVelDisp,
                              optPiezoNum[0], optPiezoNum[1], optPZConnect[0], optPZConnect[1]};
  for (int i = 0; i < 2; ++i) {
    order.insert(order.end(), {txtPZLambda[i], txtPZmm[i], txtPZpolar[i]});
  }
  order.insert(order.end(), {optPZLayer[0], optPZLayer[1]});
  for (const MaterialField<PiezoMaterial>& field : material.Fields()) {
    order.push_back(field.box);
  }
  order.insert(order.end(), {cmdOpenPiezoDB, dispersion.Button(), cmdPiezoOK, cmdPiezoCancel});
  LeadTabThrough(order);
}

}  // namespace halvorne
