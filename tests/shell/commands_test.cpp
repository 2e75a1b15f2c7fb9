#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QLabel>
#include <QListWidget>
#include <QScreen>
#include <QTest>
#include <QTextBrowser>
#include <fstream>

#include "engine/design_model.h"
#include "platform/failure.h"
#include "plot/plot_state.h"
#include "report/text_exports.h"
#include "shell/window_test.h"

namespace halvorne::testing {
namespace {

class Commands : public WindowTest {};

QString ClipboardText() {
  return QGuiApplication::clipboard()->text();
}

TEST_F(Commands, CopyTheGraphAsItIsSeen) {
  StartWithDesign();
  Click("Cursor1");
  Click("cmdCopyToClipboard");
  EXPECT_EQ(QGuiApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32), Screen());
}

TEST_F(Commands, CopyTheGraphsData) {
  StartWithDesign();
  ClickMenu("mnuEditCopyGraphData");
  std::string expected;
  GraphDataToClipboard(expected);
  EXPECT_EQ(ClipboardText().toStdString(), expected);
  EXPECT_NE(expected.find("A probe"), std::string::npos);
  QGuiApplication::clipboard()->clear();
  Click("cmdCopyDataToClipboard");
  EXPECT_EQ(ClipboardText().toStdString(), expected);
}

TEST_F(Commands, CopyTheStatistics) {
  StartWithDesign();
  ClickMenu("mnuView2WayItem(2)");
  ClickMenu("mnuEditCopyStats");
  EXPECT_EQ(ClipboardText().toStdString(), StatisticsText());
  EXPECT_TRUE(ClipboardText().contains(Find<QLabel>("lblPkAmpl")->text()));
}

TEST_F(Commands, SaveTheGraphsData) {
  StartWithDesign();
  script.ExpectFileDialog("Save As", [&](QFileDialog& dialog) {
    EXPECT_EQ(dialog.directory().absolutePath().toStdString(), (Folder() / "DATA").string());
    auto* const name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    EXPECT_EQ(name->text(), QStringLiteral("GRAPH1.DAT"));
    EXPECT_TRUE(dialog.testOption(QFileDialog::DontConfirmOverwrite));
    QTest::keyClick(name, Qt::Key_Return);
  });
  ClickMenu("mnuEditSaveGraphData");
  EXPECT_TRUE(
      ReadFile(Data("GRAPH1.DAT")).starts_with("\"Halvorne for Windows Version 4.01\"\r\n"));
}

TEST_F(Commands, SaveTheGraphsDataAsksBeforeItOverwrites) {
  StartWithDesign();
  std::ofstream(Data("GRAPH1.DAT")) << "mine";
  script.ExpectFileDialog("Save As", Data("GRAPH1.DAT").string());
  script.Expect(Question("Halvorne Save Graph Data", "Overwrite existing file?", QMessageBox::No));
  ClickMenu("mnuEditSaveGraphData");
  EXPECT_EQ(ReadFile(Data("GRAPH1.DAT")), "mine");
}

TEST_F(Commands, SaveTheGraphsDataWithTheFlagsOfTheDialogBefore) {
  StartWithDesign();
  script.ExpectCancelledFileDialog("Save As");
  script.Expect(FileBox("File Save", 32755, "Cancel was selected."));
  ClickMenu("mnuFileItem(2)");
  script.ExpectFileDialog("Save As", [](QFileDialog& dialog) {
    EXPECT_FALSE(dialog.testOption(QFileDialog::DontConfirmOverwrite))
        << "the flag that Save As set is gone";
    dialog.reject();
  });
  script.Expect(FileBox("Open Error", 32755, "Cancel was selected."));
  ClickMenu("mnuEditSaveGraphData");
}

TEST_F(Commands, CancelledSaveOfTheGraphsDataHasItsTitle) {
  StartWithDesign();
  script.ExpectCancelledFileDialog("Save As");
  script.Expect(FileBox("Open Error", 32755, "Cancel was selected."));
  ClickMenu("mnuEditSaveGraphData");
  EXPECT_EQ(main->cursor().shape(), Qt::ArrowCursor) << "the pointer stays busy";
}

TEST_F(Commands, ChangeTheElementAndShowTheNewCurves) {
  StartWithDesign();
  const QImage before = Screen();
  const double impedance = curves.ZinElecIm(10);
  script.ExpectForm("frmSizeEntry", [](QWidget& dialog) {
    auto* const box = dialog.findChild<QLineEdit*>(QStringLiteral("txtPiezoDim1"));
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, QStringLiteral("20"));
    QTest::keyClick(box, Qt::Key_Return);
  });
  ClickMenu("mnuInputSz");
  EXPECT_EQ(design.ElementDim1, 20);
  EXPECT_NE(curves.ZinElecIm(10), impedance);
  EXPECT_NE(design.DesignNew, 0);
  EXPECT_EQ(Screen(), CorePicture());
  EXPECT_NE(Screen(), before);
}

TEST_F(Commands, OpenTheirDialogs) {
  StartWithDesign();
  const auto close = [](QWidget& dialog) {
    const QRect screen = dialog.screen()->geometry();
    EXPECT_NEAR(dialog.geometry().center().x(), screen.center().x(), 6) << "not centred";
    EXPECT_NEAR(dialog.geometry().center().y(), screen.center().y(), 6) << "not centred";
    dialog.close();
  };
  for (const auto& [command, form] : {std::pair{"mnuInputElTerm", "frmElecTermEntry"},
                                      {"mnuInputSz", "frmSizeEntry"},
                                      {"mnuInputLoad", "frmAcoustLoad"},
                                      {"mnuInputElNet", "frmElNetEntry"},
                                      {"mnuInputFreqPts", "frmFreqEntry"},
                                      {"mnuInputTimePts", "frmTimeEntry"},
                                      {"mnuOptionsItem(0)", "frmExcite"},
                                      {"mnuOptionsItem(1)", "frmPlotScaleEntry"},
                                      {"mnuOptionsItem(2)", "frmDisplayOpt"},
                                      {"mnuHelpItem(3)", "frmAbout"}}) {
    script.ExpectForm(form, close);
    ClickMenu(command);
    EXPECT_TRUE(script.Finished()) << form;
  }
}

TEST_F(Commands, DoubleClickOnTheGraphSetsItsScalesWhileADesignIsOpen) {
  StartWithDesign();
  script.ExpectForm("frmPlotScaleEntry", [](QWidget& dialog) { dialog.close(); });
  QTest::mouseDClick(Find<QWidget>("Picture1"), Qt::LeftButton);
  EXPECT_TRUE(script.Finished());
  ClickMenu("mnuFileItem(0)");
  QTest::mouseDClick(Find<QWidget>("Picture1"), Qt::LeftButton);
}

TEST_F(Commands, DoubleClickOnTheAttenuationSetsTheDisplayOptions) {
  StartWithDesign();
  ClickMenu("mnuView2WayItem(0)");
  for (const char* name :
       {"fraAtten", "lblAttenLength", "lblAttenRate", "lblAttenFreq", "lblAttenExp"}) {
    script.ExpectForm("frmDisplayOpt", [](QWidget& dialog) { dialog.close(); });
    QTest::mouseDClick(Find<QWidget>(name), Qt::LeftButton);
    EXPECT_TRUE(script.Finished()) << name;
  }
}

TEST_F(Commands, DoubleClickOnADisabledAttenuationDoesNothing) {
  StartProgram();
  const auto clickAll = [&] {
    for (const char* name :
         {"fraAtten", "lblAttenLength", "lblAttenRate", "lblAttenFreq", "lblAttenExp"}) {
      QTest::mouseDClick(Find<QWidget>(name), Qt::LeftButton);
    }
  };
  clickAll();
  OpenFile(MakeDesignFile());
  ClickMenu("mnuViewTxZ");
  ASSERT_FALSE(Enabled("fraAtten")) << "an impedance has no loss in the load medium";
  clickAll();
}

TEST_F(Commands, KeysOfDisabledMenusDoNothing) {
  StartProgram();
  QGuiApplication::clipboard()->setText(QStringLiteral("mine"));
  constexpr Qt::KeyboardModifiers shift = Qt::ControlModifier | Qt::ShiftModifier;
  QTest::keyClick(main.get(), Qt::Key_C, Qt::ControlModifier);
  QTest::keyClick(main.get(), Qt::Key_C, shift);
  QTest::keyClick(main.get(), Qt::Key_S, shift);
  QTest::keyClick(main.get(), Qt::Key_W, Qt::ControlModifier);
  EXPECT_EQ(ClipboardText(), QStringLiteral("mine"));
}

TEST_F(Commands, HelpThatIsMissingIsToldEachTime) {
  StartProgram();
  std::filesystem::remove(Folder() / "HALVORNE.HLP");
  script.Expect({.title = "   Missing File!",
                 .text = "\nMicrosoft does not include Winhlp32.exe in its windows distribution "
                         "for Windows 7 or Vista.\n\nYou need to download and install this file "
                         "for the help system to operate.",
                 .icon = QMessageBox::Warning});
  ClickMenu("mnuHelpItem(0)");
}

TEST_F(Commands, KeyboardAloneReachesAPlot) {
  StartWithDesign();
  QTest::keyClick(main.get(), Qt::Key_V, Qt::AltModifier);
  for (const Qt::Key key : {Qt::Key_R, Qt::Key_E}) {
    QTest::keyClick(QApplication::activePopupWidget(), key);
  }
  EXPECT_EQ(view.CurrentPlot, 23);
}

// A sweep may raise one failure at thousands of points: nobody should have to click each away.
TEST_F(Commands, OfferToSilenceABoxThatRepeats) {
  StartProgram();
  const auto fail = [] {
    messages().Show({.title = "ERROR in Tline of CALCS", .text = "Error: 6. Overflow"});
  };
  const ExpectedBox box = FailureBox("ERROR in Tline of CALCS", "Error: 6. Overflow");
  const auto expectOffer = [&](bool take) {
    script.ExpectForm("MsgBox", [take](QWidget& window) {
      auto& shown = static_cast<QMessageBox&>(window);
      ASSERT_NE(shown.checkBox(), nullptr);
      EXPECT_EQ(shown.checkBox()->text(),
                QStringLiteral("Do not show this message again until the command ends"));
      shown.checkBox()->setChecked(take);
      QTest::keyClick(&window, Qt::Key_Return);
    });
  };
  {
    const Command command;
    script.ExpectForm("MsgBox", [](QWidget& window) {
      EXPECT_EQ(static_cast<QMessageBox&>(window).checkBox(), nullptr) << "offered at the first";
      window.close();
    });
    fail();
    expectOffer(false);
    fail();
    expectOffer(true);
    fail();
    for (int i = 0; i < 1000; ++i) {
      fail();
    }
    script.Expect(FailureBox("ERROR in Tline of CALCS", "Error: 11. Division by zero"));
    messages().Show({.title = "ERROR in Tline of CALCS", .text = "Error: 11. Division by zero"});
  }
  {
    const Command next;
    script.Expect(box);
    fail();
  }
}

TEST_F(Commands, EndSilenceWithTheOutermostCommand) {
  StartProgram();
  const auto fail = [] { messages().Show({.title = "T", .text = "x"}); };
  const Command outer;
  script.Expect(FailureBox("T", "x"));
  fail();
  { const Command inner; }
  script.ExpectForm("MsgBox", [](QWidget& window) {
    EXPECT_NE(static_cast<QMessageBox&>(window).checkBox(), nullptr)
        << "what a command starts in turn belongs to it";
    window.close();
  });
  fail();
}

}  // namespace
}  // namespace halvorne::testing
