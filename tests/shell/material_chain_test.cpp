// The way from the menu through a dialog to its material browser and back.

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <functional>

#include "dialogs/entry_state.h"
#include "engine/design_model.h"
#include "platform/numbers.h"
#include "platform/qt/forms.h"
#include "plot/plot_state.h"
#include "shell/window_test.h"

namespace halvorne::testing {
namespace {

void ClickIn(QWidget& window, const char* name) {
  auto* const button = window.findChild<QAbstractButton*>(QString::fromLatin1(name));
  ASSERT_NE(button, nullptr) << name;
  ASSERT_TRUE(button->isEnabled()) << name;
  QTest::mouseClick(button, Qt::LeftButton);
}

bool Shown(QWidget& window, const char* name) {
  auto* const control = window.findChild<QWidget*>(QString::fromLatin1(name));
  EXPECT_NE(control, nullptr) << name;
  return control != nullptr && control->isVisible();
}

std::string TextIn(QWidget& window, const char* name) {
  auto* const box = window.findChild<QLineEdit*>(QString::fromLatin1(name));
  EXPECT_NE(box, nullptr) << name;
  return box != nullptr ? box->text().toStdString() : std::string();
}

/// Clicks the row of a material in the table of a browser.
void ClickMaterial(QWidget& browser, const char* table, const char* material) {
  auto* const tables = browser.findChild<QComboBox*>();
  tables->setCurrentText(QString::fromLatin1(table));
  auto* const grid = browser.findChild<QTableView*>();
  for (int row = 0; row < grid->model()->rowCount(); ++row) {
    const QModelIndex cell = grid->model()->index(row, 0);
    if (cell.data().toString() == QLatin1String(material)) {
      grid->scrollTo(cell);
      QTest::mouseClick(grid->viewport(), Qt::LeftButton, Qt::NoModifier,
                        grid->visualRect(cell).center());
      EXPECT_EQ(TextIn(browser, "txtCopyMaterial"), material);
      return;
    }
  }
  ADD_FAILURE() << "no " << material << " in " << table;
}

class MaterialChain : public WindowTest {
 protected:
  MaterialChain() { Reset(entry); }
  ~MaterialChain() override {
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "a window of the chain is still open";
  }

  /// The next window is frmPiezoEntry: to its Material page and on to the browser.
  void ExpectToThePiezoBrowser() {
    script.ExpectForm("frmPiezoEntry", [](QWidget& dialog) {
      ClickIn(dialog, "CmdView(1)");
      ClickIn(dialog, "cmdOpenPiezoDB");
    });
  }
  void ExpectToTheAcousticBrowser(int layer = 1) {
    script.ExpectForm("frmFaceEntry", [layer](QWidget& dialog) {
      ClickIn(dialog, "CmdView(1)");
      for (int steps = 1; steps < layer; ++steps) {
        ClickIn(dialog, "CmdMatlLayerUp");
      }
      ClickIn(dialog, "cmdOpenAcousticDB");
    });
  }
};

TEST_F(MaterialChain, AMaterialComesBackIntoItsLayerAndTheDesign) {
  StartWithDesign();
  const double thickness = design.PZThick(1);
  ExpectToThePiezoBrowser();
  script.ExpectForm("frmPiezoDB", [](QWidget& browser) {
    EXPECT_EQ(FormCount("frmFaceEntry"), 0);
    ClickMaterial(browser, "Lead_Zirconate_Titanate", "PZT-5H");
    ClickIn(browser, "cmdPiezoDBOK");
  });
  script.ExpectForm("frmPiezoEntry", [](QWidget& dialog) {
    EXPECT_TRUE(Shown(dialog, "FrameThickness")) << "after a copy the Thickness page";
    EXPECT_FALSE(Shown(dialog, "FrameMaterial"));
    EXPECT_EQ(TextIn(dialog, "txtPZmm(0)"), "0.40000") << "the millimetres are kept";
    // 0.4 mm / 1000 * 5 MHz / 4575 m/s
    EXPECT_EQ(TextIn(dialog, "txtPZLambda(0)"), "0.43716") << "the wavelengths are new";
    EXPECT_EQ(FormCount("frmFaceEntry"), 1) << "a hidden plates dialog stays loaded";
    ClickIn(dialog, "cmdPiezoOK");
  });
  ClickMenu("mnuInputPiezo");
  EXPECT_EQ(design.PZMatl(1).Name, "PZT-5H");
  EXPECT_EQ(design.PZMatl(1).Velocity, 4575);
  EXPECT_EQ(design.PZMatl(1).Ks, 1470);
  EXPECT_EQ(design.PZMatl(1).TanDm, 0.01538);
  EXPECT_NEAR(design.PZThick(1), thickness, 1e-12);
  EXPECT_EQ(design.DesignNew, 65535) << "the design was calculated anew";
  EXPECT_FALSE(entry.PZDBReturn);
}

TEST_F(MaterialChain, WithoutAMarkTheMaterialPageComesBack) {
  StartWithDesign();
  const std::string name = design.PZMatl(1).Name;
  ExpectToThePiezoBrowser();
  script.ExpectForm("frmPiezoDB", [](QWidget& browser) {
    EXPECT_EQ(TextIn(browser, "txtCopyMaterial"), "None");
    ClickIn(browser, "cmdPiezoDBOK");
  });
  script.ExpectForm("frmPiezoEntry", [&](QWidget& dialog) {
    EXPECT_TRUE(Shown(dialog, "FrameMaterial"));
    EXPECT_EQ(TextIn(dialog, "txtPZMatlName"), name);
    EXPECT_EQ(FormCount("frmFaceEntry"), 1);
    ClickIn(dialog, "cmdPiezoCancel");
  });
  ClickMenu("mnuInputPiezo");
  EXPECT_EQ(design.PZMatl(1).Name, name);
  EXPECT_TRUE(entry.PZDBReturn);
}

TEST_F(MaterialChain, TheHiddenPlatesDialogIsUnloadedBeforeThePlatesAreOpened) {
  StartWithDesign();
  ExpectToThePiezoBrowser();
  script.ExpectForm("frmPiezoDB", [](QWidget& browser) { ClickIn(browser, "cmdPiezoDBOK"); });
  script.ExpectForm("frmPiezoEntry", [](QWidget& dialog) { ClickIn(dialog, "cmdPiezoCancel"); });
  ClickMenu("mnuInputPiezo");
  ASSERT_EQ(FormCount("frmFaceEntry"), 1);
  script.ExpectForm("frmFaceEntry", [](QWidget& dialog) {
    EXPECT_EQ(dialog.windowTitle().toStdString(), "Backplate Entry");
    EXPECT_EQ(TextIn(dialog, "txtNFace"), " 1") << "of the back, not of what stood there before";
    EXPECT_TRUE(Shown(dialog, "FrameThick"));
    ClickIn(dialog, "cmdFaceCancel");
  });
  ClickMenu("mnuInputBP");
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(FormCount("frmFaceEntry"), 0);
}

TEST_F(MaterialChain, CancelOfThePiezoelectricBrowserClosesBothWindows) {
  StartWithDesign();
  const std::string name = design.PZMatl(1).Name;
  script.ExpectForm("frmPiezoEntry", [](QWidget& dialog) {
    ClickIn(dialog, "CmdView(1)");
    auto* const box = dialog.findChild<QLineEdit*>("txtPZMatlName");
    box->selectAll();
    QTest::keyClicks(box, "Changed");
    ClickIn(dialog, "cmdOpenPiezoDB");
  });
  script.ExpectForm("frmPiezoDB", [](QWidget& browser) {
    ClickMaterial(browser, "Lead_Zirconate_Titanate", "PZT-5H");
    ClickIn(browser, "cmdPiezoDBCancel");
  });
  design.DesignNew = 0;
  ClickMenu("mnuInputPiezo");
  EXPECT_EQ(design.PZMatl(1).Name, name) << "nothing is committed";
  EXPECT_EQ(design.DesignNew, 0) << "nothing is calculated";
  EXPECT_TRUE(entry.PZDBReturn);
  EXPECT_EQ(FormCount("frmFaceEntry"), 0) << "Cancel does not speak to the plates dialog";

  // The flag waits for the next opening.
  script.ExpectForm("frmPiezoEntry", [&](QWidget& dialog) {
    EXPECT_TRUE(Shown(dialog, "FrameMaterial"));
    EXPECT_EQ(TextIn(dialog, "txtPZMatlName"), name) << "the edits of the copy are lost";
    ClickIn(dialog, "cmdPiezoCancel");
  });
  ClickMenu("mnuInputPiezo");
}

TEST_F(MaterialChain, TheCycleMayRunSeveralTimes) {
  StartWithDesign();
  ExpectToThePiezoBrowser();
  for (const char* material : {"PZT-4", "PZT-5A", "PZT-8"}) {
    script.ExpectForm("frmPiezoDB", [material](QWidget& browser) {
      ClickMaterial(browser, "Lead_Zirconate_Titanate", material);
      ClickIn(browser, "cmdPiezoDBOK");
    });
    if (std::string(material) != "PZT-8") {
      ExpectToThePiezoBrowser();
    }
  }
  script.ExpectForm("frmPiezoEntry", [](QWidget& dialog) { ClickIn(dialog, "cmdPiezoOK"); });
  ClickMenu("mnuInputPiezo");
  EXPECT_EQ(design.PZMatl(1).Name, "PZT-8");
  EXPECT_EQ(FormCount("frmPiezoEntry"), 0);
  EXPECT_EQ(FormCount("frmPiezoDB"), 0);
}

TEST_F(MaterialChain, APlateComesBackOnTheMaterialPage) {
  StartWithDesign();
  ExpectToTheAcousticBrowser(2);
  script.ExpectForm("frmAcousticDB", [](QWidget& browser) {
    ClickMaterial(browser, "Metals", "Aluminum");
    ClickIn(browser, "cmdAcousticDBOK");
  });
  script.ExpectForm("frmFaceEntry", [](QWidget& dialog) {
    EXPECT_TRUE(Shown(dialog, "FrameMaterial"));
    EXPECT_EQ(TextIn(dialog, "txtMatlLayer"), "2");
    EXPECT_EQ(TextIn(dialog, "txtAcMatlName"), "Aluminum");
    EXPECT_EQ(TextIn(dialog, "txtAcLongVel"), "6300.0");
    EXPECT_EQ(TextIn(dialog, "txtAcDataSource"), "ASTM E494 Table X3.1");
    ClickIn(dialog, "cmdFaceOK");
  });
  ClickMenu("mnuInputFP");
  EXPECT_EQ(design.FaceMatl(2).Name, "Aluminum");
  EXPECT_EQ(design.FaceMatl(2).Velocity, 6300);
  EXPECT_EQ(design.FaceMatl(2).Density, 2700);
  EXPECT_EQ(design.FaceMatl(1).Name, "Plate");
  EXPECT_FALSE(entry.AcDBReturn);
}

TEST_F(MaterialChain, WithoutAMarkThePlatesComeBackOnTheThicknessPage) {
  StartWithDesign();
  ExpectToTheAcousticBrowser();
  script.ExpectForm("frmAcousticDB", [](QWidget& browser) { ClickIn(browser, "cmdAcousticDBOK"); });
  script.ExpectForm("frmFaceEntry", [](QWidget& dialog) {
    EXPECT_TRUE(Shown(dialog, "FrameThick"));
    EXPECT_FALSE(Shown(dialog, "FrameMaterial"));
    EXPECT_FALSE(entry.AcDBReturn) << "the dialog has cleared it as it was loaded";
    ClickIn(dialog, "cmdFaceCancel");
  });
  ClickMenu("mnuInputBP");
  EXPECT_EQ(design.BackMatl(1).Name, "Plate");
}

TEST_F(MaterialChain, CancelOfTheAcousticBrowserComesBackToTheMaterialPage) {
  StartWithDesign();
  ExpectToTheAcousticBrowser(2);
  script.ExpectForm("frmAcousticDB", [](QWidget& browser) {
    ClickMaterial(browser, "Metals", "Aluminum");
    ClickIn(browser, "cmdAcousticDBCancel");
  });
  script.ExpectForm("frmFaceEntry", [](QWidget& dialog) {
    EXPECT_TRUE(Shown(dialog, "FrameMaterial"));
    EXPECT_EQ(TextIn(dialog, "txtMatlLayer"), "2");
    EXPECT_EQ(TextIn(dialog, "txtAcMatlName"), "Plate") << "nothing was copied";
    ClickIn(dialog, "cmdFaceCancel");
  });
  ClickMenu("mnuInputFP");
  EXPECT_EQ(design.FaceMatl(2).Name, "Plate");
}

TEST_F(MaterialChain, TheCloseBoxOfTheBrowserIsItsCancel) {
  StartWithDesign();
  ExpectToTheAcousticBrowser();
  script.ExpectForm("frmAcousticDB", [](QWidget& browser) { browser.close(); });
  script.ExpectForm("frmFaceEntry", [](QWidget& dialog) {
    EXPECT_TRUE(Shown(dialog, "FrameMaterial"));
    ClickIn(dialog, "cmdFaceCancel");
  });
  ClickMenu("mnuInputFP");
  ExpectToThePiezoBrowser();
  script.ExpectForm("frmPiezoDB", [](QWidget& browser) { browser.close(); });
  ClickMenu("mnuInputPiezo");
  EXPECT_TRUE(entry.PZDBReturn);
}

}  // namespace
}  // namespace halvorne::testing
