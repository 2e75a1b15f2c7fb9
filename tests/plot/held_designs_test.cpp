#include "plot/held_designs.h"

#include "support/fresh_program.h"

namespace halvorne::testing {
namespace {

class HeldDesigns : public FreshProgram {
 protected:
  /// Makes the present design another one.
  static void Name(const std::string& title, const std::string& file) {
    design.DesignTitle = title;
    design.DataFileName = file;
  }
};

TEST_F(HeldDesigns, AreCopiesOfDesignAndCurvesAsTheyWereThen) {
  Name("First", "first.dat");
  design.PZThick(1) = 4e-4;
  curves.TwoWayTFRe(kLastFreqPoint) = 0.25;
  wave.ExciteRe(kLastTimePoint) = 0.125;
  EXPECT_EQ(Hold(), 0);
  design.PZThick(1) = 5e-4;
  curves.TwoWayTFRe(kLastFreqPoint) = 0.5;
  wave.ExciteRe(kLastTimePoint) = 1;
  const HeldDesign& held = *Held(0);
  EXPECT_EQ(held.snapshot->design.PZThick(1), 4e-4);
  EXPECT_EQ(held.snapshot->curves.TwoWayTFRe(kLastFreqPoint), 0.25);
  EXPECT_EQ(held.snapshot->ExciteRe(kLastTimePoint), 0.125);
  EXPECT_EQ(design.PZThick(1), 5e-4) << "the present design is not touched";
}

TEST_F(HeldDesigns, AreSixAtMost) {
  for (int slot = 0; slot < 6; ++slot) {
    EXPECT_FALSE(AllSlotsTaken());
    EXPECT_EQ(Hold(), slot);
  }
  EXPECT_TRUE(AllSlotsTaken());
  EXPECT_EQ(Hold(), -1);
  EXPECT_EQ(HeldSlots(), (std::vector{0, 1, 2, 3, 4, 5}));
}

TEST_F(HeldDesigns, KeepTheirSlotsWhenAnotherOneGoesAndFreeOnesAreTakenFirst) {
  for (const char* title : {"A", "B", "C"}) {
    Name(title, "");
    Hold();
  }
  Drop(1);
  EXPECT_EQ(Held(1), nullptr);
  EXPECT_EQ(Held(0)->label, "1: A");
  EXPECT_EQ(Held(2)->label, "3: C");
  Name("D", "");
  EXPECT_EQ(Hold(), 1);
  EXPECT_EQ(Held(1)->label, "2: D");
}

TEST_F(HeldDesigns, AllGoAtOnceButForTheReference) {
  Hold();
  Hold();
  HoldReference("As it was");
  EXPECT_EQ(HeldSlots(), (std::vector{0, 1, 6}));
  DropAll();
  EXPECT_EQ(HeldSlots(), std::vector{6});
  EXPECT_EQ(Held(kReferenceSlot)->label, "As it was");
  Drop(kReferenceSlot);
  EXPECT_TRUE(HeldSlots().empty());
}

TEST_F(HeldDesigns, AReferenceNeedsNoFreeSlotAndReplacesTheOneBefore) {
  while (Hold() >= 0) {
  }
  design.PZThick(1) = 1e-3;
  HoldReference("First");
  design.PZThick(1) = 2e-3;
  HoldReference("Second");
  EXPECT_EQ(Held(kReferenceSlot)->snapshot->design.PZThick(1), 2e-3);
  EXPECT_EQ(Held(kReferenceSlot)->label, "Second");
}

TEST_F(HeldDesigns, SlotsThatThereAreNotHoldNothing) {
  Drop(-1);
  Drop(kHeldSlots);
  EXPECT_EQ(Held(-1), nullptr);
  EXPECT_EQ(Held(kHeldSlots), nullptr);
}

TEST_F(HeldDesigns, RememberWhetherTheirWaveformWasOnShow) {
  setup.PreviousPlot = 33;
  Hold();
  EXPECT_TRUE(Held(0)->aliasingAccepted);
  setup.PreviousPlot = 31;
  Hold();
  EXPECT_FALSE(Held(1)->aliasingAccepted);
  setup.PreviousPlot = 33;
  plot.Outdated = true;
  Hold();
  EXPECT_FALSE(Held(2)->aliasingAccepted) << "the waveform on show is another one";
}

TEST_F(HeldDesigns, AreCalledByTitleAndFileWithoutItsFolders) {
  Name("A probe", "/data/probes/probe.dat");
  EXPECT_EQ(DesignCaption(design), "A probe (probe.dat)");
  Name("", "probe.dat");
  EXPECT_EQ(DesignCaption(design), "probe.dat");
  Name("A probe", "");
  EXPECT_EQ(DesignCaption(design), "A probe");
  Name("", "");
  EXPECT_EQ(DesignCaption(design), "Design");
}

}  // namespace
}  // namespace halvorne::testing
