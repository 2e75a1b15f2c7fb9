#include "shell/stack_box.h"

#include <QAccessible>
#include <QGroupBox>
#include <QListWidget>
#include <QTest>
#include <QToolTip>

#include "dialogs/entry_state.h"
#include "engine/design_model.h"
#include "plot/plot_select.h"
#include "shell/layout_check.h"
#include "shell/window_test.h"

namespace halvorne::testing {
namespace {

class StackBoxTest : public WindowTest {
 protected:
  void Start() {
    StartWithDesign();
    main->resize(1200, 1000);
    QCoreApplication::processEvents();
    box = Find<StackBox>("picStack");
    ASSERT_TRUE(box->isVisible());
    box->grab();  // painted, so that every part has its place
  }

  int IndexOf(StackKind kind, int number) const {
    const std::vector<StackPart>& parts = box->Shown().parts;
    for (std::size_t i = 0; i < parts.size(); ++i) {
      if (parts[i].kind == kind && parts[i].number == number) {
        return static_cast<int>(i);
      }
    }
    ADD_FAILURE() << "no such part";
    return 0;
  }
  QPoint PlaceOf(StackKind kind, int number) const {
    const Area& area = box->Layout().parts.at(static_cast<std::size_t>(IndexOf(kind, number)));
    return QPointF(area.MiddleX(), area.MiddleY()).toPoint();
  }
  void DoubleClick(StackKind kind, int number) {
    QTest::mouseDClick(box, Qt::LeftButton, {}, PlaceOf(kind, number));
  }
  static std::string FocusIn(QWidget& dialog) {
    return dialog.focusWidget() == nullptr ? "" : dialog.focusWidget()->objectName().toStdString();
  }
  /// Expects a dialog of that name whose control has the focus, and closes it.
  void ExpectAt(const char* form, const char* control) {
    script.ExpectForm(form, [control](QWidget& dialog) {
      EXPECT_EQ(FocusIn(dialog), control);
      dialog.close();
    });
  }

  StackBox* box = nullptr;
};

TEST_F(StackBoxTest, StandsBelowTheMeasurementsWhereThereIsRoom) {
  Start();
  const auto* const atten = Find<QGroupBox>("fraAtten");
  EXPECT_GT(box->geometry().top(), atten->geometry().bottom());
  EXPECT_EQ(box->parentWidget(), atten->parentWidget());
  EXPECT_EQ(LayoutFaults(*main), std::vector<std::string>{});
  main->resize(main->minimumSize());
  EXPECT_FALSE(box->isVisible());
  EXPECT_EQ(LayoutFaults(*main), std::vector<std::string>{});
}

TEST_F(StackBoxTest, StandsThereOnlyWhileADesignIsOpen) {
  const std::string file = MakeDesignFile();
  StartProgram();
  main->resize(1200, 1000);
  EXPECT_FALSE(Find<QWidget>("picStack")->isVisible());
  OpenFile(file);
  EXPECT_TRUE(Find<QWidget>("picStack")->isVisible());
  ClickMenu("mnuFileItem(0)");
  EXPECT_FALSE(Find<QWidget>("picStack")->isVisible());
}

TEST_F(StackBoxTest, DoesNotMakeTheWindowsSmallestSizeLarger) {
  Start();
  const QSize smallest = main->minimumSize();
  ClickMenu("mnuFileItem(0)");
  main->resize(1100, 1000);
  EXPECT_EQ(main->minimumSize(), smallest);
}

TEST_F(StackBoxTest, FollowsTheDesign) {
  Start();
  const QImage before = box->grab().toImage();
  design.FrontThick(1) = 0.001;
  Recalc();
  EXPECT_NE(box->grab().toImage(), before);
  design.FrontThick(1) = 0.00012;
  Recalc();
  EXPECT_EQ(box->grab().toImage(), before);
}

TEST_F(StackBoxTest, ADoubleClickOpensTheDialogOnThatLayer) {
  Start();
  ExpectAt("frmFaceEntry", "txtFaceMM(1)");
  DoubleClick(StackKind::kFacePlate, 2);
  EXPECT_EQ(entry.PlateSide, "Face");
  EXPECT_EQ(entry.CurAcLayer, 2) << "the plate that the Material page shows";
  ExpectAt("frmFaceEntry", "txtFaceMM(0)");
  DoubleClick(StackKind::kBackPlate, 1);
  EXPECT_EQ(entry.PlateSide, "Back");
  ExpectAt("frmPiezoEntry", "txtPZmm(0)");
  DoubleClick(StackKind::kPiezo, 1);
  ExpectAt("frmAcoustLoad", "txtAcoustBackZ");
  DoubleClick(StackKind::kRearLoad, 0);
  ExpectAt("frmAcoustLoad", "txtAcoustFrontZ");
  DoubleClick(StackKind::kFrontLoad, 0);
  ExpectAt("frmElNetEntry", "lstElNet");
  DoubleClick(StackKind::kElement, 0);
  ExpectAt("frmElecTermEntry", "txtXmtrZ");
  DoubleClick(StackKind::kPort, 0);
}

TEST_F(StackBoxTest, ALayerOpensOnItsThicknessEvenBehindABrowserThatWasCancelled) {
  Start();
  entry.PZDBReturn = true;  // what the browser's Cancel leaves for the menu
  entry.CurPZLayer = 1;
  script.ExpectForm("frmPiezoEntry", [](QWidget& dialog) {
    EXPECT_EQ(FocusIn(dialog), "txtPZmm(0)");
    EXPECT_TRUE(dialog.findChild<QWidget*>("txtPZmm(0)")->isVisible());
    dialog.close();
  });
  DoubleClick(StackKind::kPiezo, 1);
  EXPECT_FALSE(entry.PZDBReturn);
}

TEST_F(StackBoxTest, TheNetworkOpensOnItsElement) {
  Start();
  for (int row = 1; row <= 3; ++row) {
    design.ElNet(row, 1) = 1;
    design.ElNet(row, 2) = 10 * row;
  }
  Recalc();
  box->grab();
  script.ExpectForm("frmElNetEntry", [](QWidget& dialog) {
    EXPECT_EQ(dialog.findChild<QListWidget*>("lstElNet")->currentRow(), 1);
    dialog.close();
  });
  DoubleClick(StackKind::kElement, 2);
}

TEST_F(StackBoxTest, ThePageOfTheMaterialShowsThatPlate) {
  Start();
  design.FaceMatl(2).Name = "Second";
  script.ExpectForm("frmFaceEntry", [](QWidget& dialog) {
    QTest::mouseClick(dialog.findChild<QWidget*>("CmdView(1)"), Qt::LeftButton);
    EXPECT_EQ(dialog.findChild<QLineEdit*>("txtAcMatlName")->text(), QStringLiteral("Second"));
    dialog.close();
  });
  DoubleClick(StackKind::kFacePlate, 2);
}

TEST_F(StackBoxTest, KeysChooseAPartAndReturnOpensIt) {
  Start();
  const QImage without = box->grab().toImage();
  box->setFocus(Qt::TabFocusReason);
  EXPECT_NE(box->grab().toImage(), without) << "the part with the focus is framed";
  QTest::keyClick(box, Qt::Key_Home);
  QTest::keyClick(box, Qt::Key_Down);  // there is nothing behind the rear load
  QTest::keyClick(box, Qt::Key_Up);
  ExpectAt("frmFaceEntry", "txtFaceMM(0)");
  QTest::keyClick(box, Qt::Key_Return);
  EXPECT_EQ(entry.PlateSide, "Back");
  QTest::keyClick(box, Qt::Key_Right);
  ExpectAt("frmPiezoEntry", "txtPZmm(0)");
  QTest::keyClick(box, Qt::Key_Space);
  QTest::keyClick(box, Qt::Key_End);
  QTest::keyClick(box, Qt::Key_Right);
  ExpectAt("frmElecTermEntry", "txtXmtrZ");
  QTest::keyClick(box, Qt::Key_Enter);
}

TEST_F(StackBoxTest, TheChosenPartIsToldToThoseWhoCannotSeeIt) {
  Start();
  auto* const told = QAccessible::queryAccessibleInterface(box);
  EXPECT_EQ(told->text(QAccessible::Name), QStringLiteral("Stack of the design"));
  EXPECT_EQ(told->text(QAccessible::Description),
            QStringLiteral("Rear load. Back plate 1: Plate. Piezoelectric layer: Test ceramic. "
                           "Face plate 1: Plate. Face plate 2: Plate. Front load. No matching "
                           "network. Electrical port."));
  box->setFocus(Qt::TabFocusReason);
  QTest::keyClick(box, Qt::Key_Home);
  EXPECT_EQ(told->text(QAccessible::Description), QStringLiteral("Rear load, Impedance 3 MRayls"));
}

TEST_F(StackBoxTest, HoveringTellsAPartInPlainWords) {
  Start();
  design.FaceMatl(1).Name = "<b>Glue</b>";
  Recalc();
  const QPoint place = PlaceOf(StackKind::kFacePlate, 1);
  QHelpEvent hover(QEvent::ToolTip, place, box->mapToGlobal(place));
  QCoreApplication::sendEvent(box, &hover);
  EXPECT_TRUE(QToolTip::text().contains(QStringLiteral("&lt;b&gt;Glue&lt;/b&gt;")))
      << QToolTip::text().toStdString();
  EXPECT_TRUE(QToolTip::text().contains(QStringLiteral("0.12 mm, 0.24 wavelengths at Fd")));
  QToolTip::hideText();
}

}  // namespace
}  // namespace halvorne::testing
