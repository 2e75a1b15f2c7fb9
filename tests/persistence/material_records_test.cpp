#include "persistence/material_records.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

#include "platform/failure.h"

namespace halvorne::testing {
namespace {

using Cells = std::vector<MaterialCell>;

Cells PiezoCells() {
  return {"PZT", 4000.0, 2000.0, 7500.0, 800.0, 0.5, 0.01, 0.00147, "Maker", "Source"};
}

Cells AcousticCells() {
  return {"Glass", 5600.0, 3400.0, 2500.0, 0.5, 5.0, 1.5, "Maker", "Formula", "Words", "A source"};
}

template <class Take, class Material>
int FailureOf(Take take, const Cells& cells, Material& material) {
  try {
    take(cells, material);
    return 0;
  } catch (const Failure& failure) {
    return failure.Number();
  }
}

TEST(MaterialRecords, OfALayerFillEachFieldFromItsColumn) {
  PiezoMaterial material;
  TakePiezoRecord(PiezoCells(), material);
  EXPECT_EQ(material.Name, "PZT");
  EXPECT_EQ(material.Velocity, 4000);
  EXPECT_EQ(material.ShearVelocity, 2000);
  EXPECT_EQ(material.Density, 7500);
  EXPECT_EQ(material.Ks, 800);
  EXPECT_EQ(material.Kt, 0.5);
  EXPECT_EQ(material.TanDe, 0.01);
  EXPECT_EQ(material.TanDm, 0.00147);
  EXPECT_EQ(material.Vendor, "Maker");
  EXPECT_EQ(material.DataSource, "Source");
}

TEST(MaterialRecords, OfALayerArriveAsTheyStand) {
  PiezoMaterial material;
  Cells cells = PiezoCells();
  cells[1] = -5.0;
  cells[2] = 99999.0;  // far above Velocity / sqrt(2)
  cells[3] = 0.0;
  cells[5] = 2.0;
  TakePiezoRecord(cells, material);
  EXPECT_EQ(material.Velocity, -5);
  EXPECT_EQ(material.ShearVelocity, 99999);
  EXPECT_EQ(material.Density, 0);
  EXPECT_EQ(material.Kt, 2);
}

TEST(MaterialRecords, OfAPlateFillEachFieldFromItsColumn) {
  AcousticMaterial material;
  TakeAcousticRecord(AcousticCells(), material);
  EXPECT_EQ(material.Name, "Glass");
  EXPECT_EQ(material.Velocity, 5600);
  EXPECT_EQ(material.ShearVelocity, 3400);
  EXPECT_EQ(material.Density, 2500);
  EXPECT_EQ(material.Loss, 0.5F);
  EXPECT_EQ(material.LossFreq, 5.0F);
  EXPECT_EQ(material.LossExp, 1.5F);
  EXPECT_EQ(material.Vendor, "Maker");
  EXPECT_EQ(material.Formula, "Formula");
  EXPECT_EQ(material.Comments, "Words");
  EXPECT_EQ(material.DataSource, "A source");
}

TEST(MaterialRecords, OfAPlateAreKeptWithinWhatAPlateCanBe) {
  AcousticMaterial material;
  Cells cells = AcousticCells();
  cells[1] = 0.999;
  cells[2] = -1.0;
  cells[3] = 0.0000009;
  TakeAcousticRecord(cells, material);
  EXPECT_EQ(material.Velocity, 1.0);
  EXPECT_EQ(material.ShearVelocity, 0);
  EXPECT_EQ(material.Density, 0.000001);

  cells[1] = 2000.0;
  cells[2] = 1900.0;
  TakeAcousticRecord(cells, material);
  EXPECT_NEAR(material.ShearVelocity, 1414.2135623730951, 1e-9) << "2000 / sqrt(2)";

  cells[1] = 0.0;  // counts as 1 before it bounds the shear velocity
  cells[2] = 5.0;
  TakeAcousticRecord(cells, material);
  EXPECT_NEAR(material.ShearVelocity, 0.70710678118654752, 1e-15);
}

TEST(MaterialRecords, OfAPlateOnTheBoundsStayAsTheyAre) {
  AcousticMaterial material;
  Cells cells = AcousticCells();
  cells[1] = 1.0;
  cells[2] = 0.7;
  cells[3] = 0.000001;
  TakeAcousticRecord(cells, material);
  EXPECT_EQ(material.Velocity, 1.0);
  EXPECT_EQ(material.ShearVelocity, 0.7);
  EXPECT_EQ(material.Density, 0.000001);
}

TEST(MaterialRecords, LossesAreTakenUnchecked) {
  AcousticMaterial material;
  Cells cells = AcousticCells();
  cells[4] = -2.0;
  cells[5] = 0.0;
  cells[6] = -1.0;
  TakeAcousticRecord(cells, material);
  EXPECT_EQ(material.Loss, -2.0F);
  EXPECT_EQ(material.LossFreq, 0.0F);
  EXPECT_EQ(material.LossExp, -1.0F);
}

TEST(MaterialRecords, MissingTextsAreEmpty) {
  PiezoMaterial layer;
  layer.Vendor = "before";
  Cells cells = PiezoCells();
  cells[8] = std::monostate();
  TakePiezoRecord(cells, layer);
  EXPECT_EQ(layer.Vendor, "");

  AcousticMaterial plate;
  plate.Comments = plate.DataSource = "before";
  cells = AcousticCells();
  cells[9] = std::monostate();
  cells[10] = "";
  TakeAcousticRecord(cells, plate);
  EXPECT_EQ(plate.Comments, "");
  EXPECT_EQ(plate.DataSource, "");
}

TEST(MaterialRecords, ANumberInATextColumnIsItsText) {
  PiezoMaterial material;
  Cells cells = PiezoCells();
  cells[0] = 3195.0;
  TakePiezoRecord(cells, material);
  EXPECT_EQ(material.Name, "3195");
}

TEST(MaterialRecords, ATextThatIsANumberCountsAsOne) {
  PiezoMaterial material;
  Cells cells = PiezoCells();
  cells[1] = " 4.35e3 ";
  TakePiezoRecord(cells, material);
  EXPECT_EQ(material.Velocity, 4350);
}

TEST(MaterialRecords, NoNumberIsATypeMismatch) {
  const std::vector<MaterialCell> wrong = {std::monostate(), "", "  ", "fast", "4000 m/s", "0x10"};
  for (const MaterialCell& cell : wrong) {
    for (std::size_t column = 1; column <= 7; ++column) {
      Cells cells = PiezoCells();
      cells[column] = cell;
      PiezoMaterial material;
      EXPECT_EQ(FailureOf(TakePiezoRecord, cells, material), 13) << column;
    }
    for (std::size_t column = 1; column <= 6; ++column) {
      Cells cells = AcousticCells();
      cells[column] = cell;
      AcousticMaterial material;
      EXPECT_EQ(FailureOf(TakeAcousticRecord, cells, material), 13) << column;
    }
  }
}

TEST(MaterialRecords, ANumberBeyondTheRangeIsAnOverflow) {
  const std::vector<MaterialCell> wrong = {std::numeric_limits<double>::infinity(), "1e999", "inf"};
  for (const MaterialCell& cell : wrong) {
    Cells cells = PiezoCells();
    cells[3] = cell;
    PiezoMaterial material;
    EXPECT_EQ(FailureOf(TakePiezoRecord, cells, material), 6);
  }
}

TEST(MaterialRecords, ALossBeyond32BitsIsAnOverflow) {
  for (std::size_t column = 4; column <= 6; ++column) {
    Cells cells = AcousticCells();
    cells[column] = 1e39;
    AcousticMaterial material;
    EXPECT_EQ(FailureOf(TakeAcousticRecord, cells, material), 6) << column;
  }
}

TEST(MaterialRecords, NoElectricalLossAtAllIsStoredAsATinyOne) {
  PiezoMaterial material;
  TakePiezoRecord(PiezoCells(), material);
  StorePiezoMaterial(2, material);
  EXPECT_EQ(design.PZMatl(2).Name, "PZT");
  EXPECT_EQ(design.PZMatl(2).TanDe, 0.01);
  material.TanDe = material.TanDm = 0;
  StorePiezoMaterial(2, material);
  EXPECT_EQ(design.PZMatl(2).TanDe, 0.00001);
  EXPECT_EQ(design.PZMatl(2).TanDm, 0) << "the mechanical loss may be none";
}

TEST(MaterialRecords, WhatStandsBeforeAFailingFieldIsTakenAlready) {
  AcousticMaterial material;
  material.LossFreq = 7;
  Cells cells = AcousticCells();
  cells[5] = std::monostate();
  EXPECT_EQ(FailureOf(TakeAcousticRecord, cells, material), 13);
  EXPECT_EQ(material.Name, "Glass");
  EXPECT_EQ(material.Loss, 0.5F);
  EXPECT_EQ(material.LossFreq, 7.0F);
  EXPECT_EQ(material.Vendor, "");
}

}  // namespace
}  // namespace halvorne::testing
