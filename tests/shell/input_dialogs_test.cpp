#include <QAbstractButton>
#include <QCheckBox>
#include <QListWidget>
#include <QTest>
#include <cmath>
#include <fstream>

#include "engine/design_model.h"
#include "plot/plot_state.h"
#include "shell/window_test.h"

namespace halvorne::testing {
namespace {

/// Works the input dialogs from the menu, as a person does.
class InputDialogs : public WindowTest {
 protected:
  template <class Control>
  static Control* In(QWidget& dialog, const char* name) {
    auto* const control = dialog.findChild<Control*>(QString::fromLatin1(name));
    if (control == nullptr) {
      throw std::runtime_error(std::string("the dialog has no control ") + name);
    }
    return control;
  }
  static void Type(QWidget& dialog, const char* name, const char* text) {
    auto* const box = In<QLineEdit>(dialog, name);
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, QString::fromLatin1(text));
  }
  static std::string Text(QWidget& dialog, const char* name) {
    return In<QLineEdit>(dialog, name)->text().toStdString();
  }
  static std::string Label(QWidget& dialog, const char* name) {
    return In<QLabel>(dialog, name)->text().toStdString();
  }
  static void Press(QWidget& dialog, const char* name) {
    auto* const button = In<QAbstractButton>(dialog, name);
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
  }
  /// Opens the dialog of a command and lets `act` work it; expects that this closes it.
  void Work(const char* command, const std::string& form, std::function<void(QWidget&)> act) {
    script.ExpectForm(form, [act = std::move(act)](QWidget& dialog) {
      act(dialog);
      EXPECT_FALSE(dialog.isVisible()) << "the dialog stays";
    });
    ClickMenu(command);
    EXPECT_TRUE(script.Finished()) << form;
  }
  std::string PutLoad() const {
    std::filesystem::create_directory(Folder() / "Acoustic loads");
    const std::string path = (Folder() / "Acoustic loads" / "Half.lac").string();
    std::ofstream file(path);
    file << "Half of everything\n";
    for (int i = 0; i <= 100; ++i) {
      file << "0.5,0.25\n";
    }
    return path;
  }
};

TEST_F(InputDialogs, ShowWhatTheyCommittedWhenTheDesignIsReadAgain) {
  StartWithDesign();
  const std::string load = PutLoad();
  Work("mnuInputFreqPts", "frmFreqEntry", [](QWidget& dialog) {
    Type(dialog, "txtStopFreq", "8");
    Type(dialog, "txtNoPts", "100");
    Type(dialog, "txtDesFreq", "4");
    Press(dialog, "cmdFreqOK");
  });
  Work("mnuInputTimePts", "frmTimeEntry", [](QWidget& dialog) {
    Press(dialog, "optPoints(3)");
    Press(dialog, "CmdTimeOK");
  });
  Work("mnuInputLoad", "frmAcoustLoad", [&](QWidget& dialog) {
    script.ExpectFileDialog("File Open", load);
    Press(dialog, "OptFrontLoad(1)");
    Type(dialog, "txtAcoustFrontZ", "1.7");
    Press(dialog, "cmdAcoustTermOK");
  });
  Work("mnuInputElNet", "frmElNetEntry", [&](QWidget& dialog) {
    In<QListWidget>(dialog, "lstElNet")->setCurrentRow(0);
    script.ExpectForm("frmEnterElement", [](QWidget& element) {
      Press(element, "optElSelect(13)");
      Type(element, "txtElValue(0)", "5");
      Type(element, "txtElValue(1)", "2.2");
      Type(element, "txtElValue(2)", "47");
      Type(element, "txtElValue(3)", "100");
      Press(element, "cmdElSelectOK");
    });
    Press(dialog, "cmdInsert");
    Press(dialog, "cmdElnetOK");
  });
  Work("mnuOptionsItem(0)", "frmExcite", [](QWidget& dialog) {
    Press(dialog, "optSineSquare(1)");
    Type(dialog, "txtExciteCycles", "4");
    Press(dialog, "cmdExciteOK");
  });
  const FreqCurve committed = curves.ZinElecRe;

  script.ExpectFileDialog("Save As", Data("again.dat").string());
  ClickMenu("mnuFileItem(2)");
  ClickMenu("mnuFileItem(0)");
  OpenFile(Data("again.dat").string());

  // A file keeps 15 digits.
  EXPECT_NEAR(curves.ZinElecRe(50), committed(50), 1e-14 * std::abs(committed(50)));
  Work("mnuInputFreqPts", "frmFreqEntry", [](QWidget& dialog) {
    EXPECT_EQ(Text(dialog, "txtStopFreq"), "8.000");
    EXPECT_EQ(Text(dialog, "txtNoPts"), "100");
    EXPECT_EQ(Text(dialog, "txtDesFreq"), "4.000");
    dialog.close();
  });
  Work("mnuInputTimePts", "frmTimeEntry", [](QWidget& dialog) {
    EXPECT_TRUE(In<QAbstractButton>(dialog, "optPoints(3)")->isChecked());
    dialog.close();
  });
  Work("mnuInputLoad", "frmAcoustLoad", [&](QWidget& dialog) {
    EXPECT_TRUE(In<QAbstractButton>(dialog, "OptFrontLoad(1)")->isChecked());
    EXPECT_EQ(Text(dialog, "txtAcoustFrontZ"), "1.700");
    EXPECT_EQ(Label(dialog, "lblFrontFilename"), "File name: " + load);
    EXPECT_EQ(Label(dialog, "lblFrontCmt"), "Comment: Half of everything");
    dialog.close();
  });
  Work("mnuInputElNet", "frmElNetEntry", [](QWidget& dialog) {
    EXPECT_EQ(In<QListWidget>(dialog, "lstElNet")->item(0)->text().toStdString(),
              "1. Series E R 5 Ohms L 2.2 uH Ca 47 pF Cb 100 pF");
    dialog.close();
  });
  Work("mnuOptionsItem(0)", "frmExcite", [](QWidget& dialog) {
    EXPECT_TRUE(In<QAbstractButton>(dialog, "optXwfmSource(1)")->isChecked());
    EXPECT_TRUE(In<QAbstractButton>(dialog, "optSineSquare(1)")->isChecked());
    EXPECT_EQ(Text(dialog, "txtExciteCycles"), "4.0000");
    dialog.close();
  });
}

TEST_F(InputDialogs, ShowTheirChangeInThePlotAtOnce) {
  StartWithDesign();
  ClickMenu("mnuViewTxZ");
  const QImage before = Screen();
  const double resistance = curves.ZinElecRe(20);
  Work("mnuInputElNet", "frmElNetEntry", [&](QWidget& dialog) {
    In<QListWidget>(dialog, "lstElNet")->setCurrentRow(0);
    script.ExpectForm("frmEnterElement", [](QWidget& element) {
      Press(element, "optElSelect(1)");
      Type(element, "txtElValue(0)", "50");
      Press(element, "cmdElSelectOK");
    });
    Press(dialog, "cmdInsert");
    Press(dialog, "cmdElnetOK");
  });
  EXPECT_NEAR(curves.ZinElecRe(20), resistance + 50, 1e-9 * (resistance + 50))
      << "a resistor in series adds to the impedance";
  EXPECT_NE(Screen(), before);
  EXPECT_EQ(Screen(), CorePicture());
}

// A shunt of nothing divides by zero at each frequency.
TEST_F(InputDialogs, FailingCalculationShowsItsBoxesAndLeavesAUsableWindow) {
  StartWithDesign();
  design.ElNet(1, 1) = 2;
  design.ElNet(1, 2) = 0;
  const auto answer = [&](bool silence) {
    script.ExpectForm("MsgBox", [silence](QWidget& window) {
      auto& box = static_cast<QMessageBox&>(window);
      EXPECT_EQ(box.windowTitle().toStdString(), "ERROR in Rnet of CALCS");
      EXPECT_EQ(box.text().toStdString(), "Error: 11. Division by zero");
      for (const QWidget* behind : QApplication::topLevelWidgets()) {
        if (behind->isVisible() && (behind->objectName() == QStringLiteral("frmElNetEntry") ||
                                    behind->objectName() == QStringLiteral("frmHalvorneMain"))) {
          EXPECT_EQ(behind->cursor().shape(), Qt::WaitCursor) << "the sweep is under way";
        }
      }
      if (silence) {
        box.checkBox()->setChecked(true);
      }
      QTest::keyClick(&window, Qt::Key_Return);
    });
  };
  Work("mnuInputElNet", "frmElNetEntry", [&](QWidget& dialog) {
    answer(false);
    answer(true);
    Press(dialog, "cmdElnetOK");
  });
  EXPECT_EQ(main->cursor().shape(), Qt::ArrowCursor);
  Work("mnuInputElNet", "frmElNetEntry", [&](QWidget& dialog) {
    EXPECT_EQ(dialog.cursor().shape(), Qt::ArrowCursor);
    In<QListWidget>(dialog, "lstElNet")->setCurrentRow(0);
    Press(dialog, "cmdDelete");
    Press(dialog, "cmdElnetOK");
  });
  EXPECT_EQ(Screen(), CorePicture());
}

TEST_F(InputDialogs, NetworkOfACancelledDialogIsForgotten) {
  StartWithDesign();
  design.ElNet(1, 1) = 1;
  design.ElNet(1, 2) = 75;
  for (const char* leave : {"cmdDelete", "cmdElnetCancel"}) {
    Work("mnuInputElNet", "frmElNetEntry", [leave](QWidget& dialog) {
      auto* const list = In<QListWidget>(dialog, "lstElNet");
      EXPECT_EQ(list->item(0)->text().toStdString(), "1. Series R 75 Ohms");
      list->setCurrentRow(0);
      Press(dialog, leave);
      dialog.close();
    });
  }
  EXPECT_EQ(design.ElNet(1, 2), 75);
}

TEST_F(InputDialogs, TakingTheExcitationAwayDisablesItsPlots) {
  StartWithDesign();
  ClickMenu("mnuView2WayItem(3)");
  ASSERT_EQ(view.CurrentPlot, 34);
  Work("mnuOptionsItem(0)", "frmExcite", [](QWidget& dialog) {
    Press(dialog, "optXwfmSource(0)");
    Press(dialog, "cmdExciteOK");
  });
  EXPECT_EQ(view.CurrentPlot, 33);
  EXPECT_FALSE(Action("mnuView2WayItem(3)")->isEnabled());
  EXPECT_EQ(Screen(), CorePicture());
}

}  // namespace
}  // namespace halvorne::testing
