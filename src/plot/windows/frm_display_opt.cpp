#include "plot/windows/frm_display_opt.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <cmath>

#include "persistence/setup_file.h"
#include "platform/main_window.h"
#include "platform/number_text.h"
#include "platform/numbers.h"
#include "plot/plot_select.h"
#include "plot/plot_state.h"

namespace halvorne {
namespace {

/// A page of option buttons under one caption.
QFrame* OptionsPage(const QString& caption, QRadioButton* const (&options)[3]) {
  auto* const frame = new QFrame;
  auto* const outer = new QVBoxLayout(frame);
  outer->setContentsMargins(0, 0, 0, 0);
  auto* const group = new QGroupBox(caption);
  auto* const column = new QVBoxLayout(group);
  for (QRadioButton* option : options) {
    column->addWidget(option);
  }
  column->addStretch();
  outer->addWidget(group);
  return frame;
}

}  // namespace

frmDisplayOpt::frmDisplayOpt(QWidget* parent)
    : ModalDialog("frmDisplayOpt", QStringLiteral("Display Options"), parent) {
  auto* const outer = new QVBoxLayout(this);
  auto* const buttons = new QHBoxLayout;
  const char* const captions[] = {"Phase", "Attenuation", "Fonts"};
  for (int i = 0; i < 3; ++i) {
    CmdView[i] = Named(new QPushButton(QString::fromLatin1(captions[i])), "CmdView", i);
    CmdView[i]->setAutoDefault(false);
    buttons->addWidget(CmdView[i]);
    connect(CmdView[i], &QPushButton::clicked, this, [this, i] { CmdView_Click(i); });
  }
  outer->addLayout(buttons);

  auto* const place = new QGridLayout;
  QFrame* const frames[] = {MakePhasePage(), MakeAttenuationPage(), MakeFontsPage()};
  for (int i = 0; i < 3; ++i) {
    place->addWidget(frames[i], 0, 0);
    pages.Add(CmdView[i], frames[i]);
  }
  outer->addLayout(place);

  cmdDisplayOptOK = Named(new QPushButton(QStringLiteral("OK")), "cmdDisplayOptOK");
  cmdDisplayOptOK->setDefault(true);
  connect(cmdDisplayOptOK, &QPushButton::clicked, this, &frmDisplayOpt::cmdDisplayOptOK_Click);
  auto* const closing = new QHBoxLayout;
  closing->addStretch();
  closing->addWidget(cmdDisplayOptOK);
  outer->addLayout(closing);
  Form_Load();
  for (QRadioButton* option : optPhase) {
    if (option->isChecked()) {
      option->setFocus();
    }
  }
}

QFrame* frmDisplayOpt::MakePhasePage() {
  const char* const captions[] = {"Phase ( +/- 180 degree window)", "Unwrapped phase",
                                  "Delay ( -phase slope)"};
  for (int i = 0; i < 3; ++i) {
    optPhase[i] = Named(new QRadioButton(QString::fromLatin1(captions[i])), "optPhase", i);
    OnChoice(optPhase[i], &frmDisplayOpt::optPhase_Click, i);
  }
  return Named(OptionsPage(QStringLiteral("Transfer function phase or delay plots"), optPhase),
               "FramePhase");
}

QFrame* frmDisplayOpt::MakeFontsPage() {
  const char* const captions[] = {"8 point", "10 point", "12 point"};
  for (int i = 0; i < 3; ++i) {
    optFontSize[i] = Named(new QRadioButton(QString::fromLatin1(captions[i])), "optFontSize", i);
    OnChoice(optFontSize[i], &frmDisplayOpt::optFontSize_Click, i);
  }
  return Named(OptionsPage(QStringLiteral("Text window font size"), optFontSize), "FrameFonts");
}

QFrame* frmDisplayOpt::MakeAttenuationPage() {
  auto* const frame = Named(new QFrame, "FrameAttin");
  auto* const outer = new QVBoxLayout(frame);
  outer->setContentsMargins(0, 0, 0, 0);
  chkAttenEnable =
      Named(new QCheckBox(QStringLiteral("Enable attenuation in load medium")), "chkAttenEnable");
  outer->addWidget(chkAttenEnable);
  auto* const parameters =
      Named(new QGroupBox(QStringLiteral("Attenuation parameters:")), "fraAttenParas");
  auto* const grid = new QGridLayout(parameters);
  grid->addWidget(new QLabel(QStringLiteral("Attenuation  =  L * A * (F/Fo)^n   dB (one way)")), 0,
                  0, 1, 3);
  lblAttenFreq = Named(new QLabel, "lblAttenFreq");
  txtAttenLength = Named(new QLineEdit, "txtAttenLength");
  txtAttenRate = Named(new QLineEdit, "txtAttenRate");
  txtAttenFreq = Named(new QLineEdit, "txtAttenFreq");
  txtAttenExp = Named(new QLineEdit, "txtAttenExp");
  const struct {
    const char* caption;
    QLineEdit* box;
    QLabel* unit;
  } rows[] = {{"One-way path length L", txtAttenLength, new QLabel(QStringLiteral("cm"))},
              {"Attenuation rate A", txtAttenRate, new QLabel(QStringLiteral("dB/cm"))},
              {"Frequency Fo", txtAttenFreq, lblAttenFreq},
              {"Exponent n", txtAttenExp, nullptr}};
  int row = 1;
  for (const auto& [caption, box, unit] : rows) {
    auto* const label = new QLabel(QString::fromLatin1(caption));
    label->setBuddy(box);
    grid->addWidget(label, row, 0);
    grid->addWidget(box, row, 1);
    if (unit != nullptr) {
      grid->addWidget(unit, row, 2);
    }
    ++row;
  }
  outer->addWidget(parameters);
  return frame;
}

void frmDisplayOpt::Form_Load() try {
  Centre();
  pages.Show(0);
  optFontSize[Bounded<int, 0, 2>::Offset(setup.DisplayFontSize)]->setChecked(true);
  optPhase[Bounded<int, 0, 2>::Offset(setup.PhaseDisplayOption)]->setChecked(true);
  lblAttenFreq->setText(ToQString(design.FreqUnit));
  SetBoxText(txtAttenLength, Format(design.AttenLength, "#0.000"));
  SetBoxText(txtAttenRate, Format(design.AttenRate, "#0.000"));
  SetBoxText(txtAttenExp, Format(design.AttenExp, "#0.000"));
  SetBoxText(txtAttenFreq, Format(Quotient(design.AttenFreq, design.FreqScale), "#0.000"));
  chkAttenEnable->setChecked(design.AttenOn);
} catch (...) {
  ReportFailure("Form_Load", "frmDisplayOpt");
}

void frmDisplayOpt::CmdView_Click(int index) try { pages.Show(index); } catch (...) {
  ReportFailure("CmdView_Click", "frmDisplayOpt");
}

void frmDisplayOpt::optPhase_Click(int index) try {
  setup.PhaseDisplayOption = ToInt16(index);
} catch (...) {
  ReportFailure("optPhase_Click", "frmDisplayOpt");
}

void frmDisplayOpt::optFontSize_Click(int index) try {
  mainWindow().SetTitleBoxFontSize(8 + 2 * index);
  setup.DisplayFontSize = ToInt16(index);
} catch (...) {
  ReportFailure("optFontSize_Click", "frmDisplayOpt");
}

void frmDisplayOpt::cmdDisplayOptOK_Click() try {
  design.AttenLength = ToSingle(std::fabs(BoxValue(txtAttenLength)));
  design.AttenRate = ToSingle(std::fabs(BoxValue(txtAttenRate)));
  design.AttenFreq = ToSingle(std::fabs(BoxValue(txtAttenFreq) * design.FreqScale));
  design.AttenExp = ToSingle(BoxValue(txtAttenExp));
  design.AttenOn = chkAttenEnable->isChecked();
  writeHalvorneSetup();
  Unload();
  PlotSelect(view.CurrentPlot);
} catch (...) {
  ReportFailure("cmdDisplayOptOK_Click", "frmDisplayOpt");
}

}  // namespace halvorne
