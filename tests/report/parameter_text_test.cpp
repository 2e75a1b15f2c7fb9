#include <gmock/gmock.h>

#include "engine/design_model.h"
#include "report/report_fixture.h"
#include "report/text_exports.h"
#include "timedomain/view.h"

namespace halvorne::testing {
namespace {

class ParameterText : public ReportTest {
 protected:
  std::string Text(std::int16_t details = 1) {
    std::string text = "what was there before";
    ParasToClipboard(text, details);
    EXPECT_EQ(shownMessages.Lines(), std::vector<std::string>{});
    return text;
  }
  bool Has(const std::string& lines) { return Text().find(lines) != std::string::npos; }
};

TEST_F(ParameterText, SaysAllInputsWithTabs) {
  EXPECT_EQ(
      Text(),
      "HALVORNE INPUT PARAMETERS \tProgram version: Version 4.01\r\n"
      "Data file: probe.dat\tDate and time calculated: then\r\n"
      "A probe\r\n"
      "FREQUENCY AND TIME\r\n"
      "Design center frequency Fd = 5.000 MHz\t"
      "Frequency range of calculation: 1.000  to 9.000 MHz\r\n"
      "Number of points in frequency domain: 16\tTime domain: 256\r\n"
      "PIEZOELECTRIC ELEMENT DESCRIPTION\r\n"
      "Connection = Series\r\n"
      "Element size: 12.7 mm disk\tElement area: 125.0000 mm^2\r\n"
      "PARAMETER\tREAR LAYER\tFRONT LAYER\tUNITS\r\n"
      "Thickness\t0.40000\t0.44000\tmm\r\n"
      "Parallel frequency Fp\t5.00000\t5.50000\tMHz\r\n"
      "Material\tRear\tFront\t\r\n"
      "Polarity & connection\t+\t-\tSeries\r\n"
      "Longititudinal impedance\t30.000\t33.000\tMRayls\r\n"
      "Longitudinal velocity\t4000.0\t4400.0\tm/sec\r\n"
      "Shear velocity\t1750.3\t1750.3\tm/sec\r\n"
      "Density\t7500.0\t7500.0\tkg/m^3\r\n"
      "Clamped capacit. Co\t125.0\t250.0\tpF\r\n"
      "Clamped dielectric const.\t850.13\t850.13\tE33s\r\n"
      "Thickness coupling kt\t0.5000\t0.5000\t\r\n"
      "Electrical loss tangent\t0.0200\t0.0200\ttan de\r\n"
      "Mechanical loss tangent\t0.0040\t0.0040\ttan dm\r\n"
      "Vendor\tRear Ltd\tFront Ltd\t\r\n"
      "Data source\tmeasured\tmeasured\t\r\n"
      "ACOUSTIC LAYERS\r\n"
      "FACE\tMATL\t\tSHEAR\tLONG.\tLONG\tLOSS\tLOSS\tLOSS\tREL.\tTHICK\tTHICK\t\r\n"
      "PLATE\tNAME\t\tVEL.\tVEL.\tIMPED.\tALPHA\tAT F\t   N\tAREA\tLambdas\t  \t\r\n"
      "No.\t\t\tm/sec\tm/sec\tMRayls\tdB/cm\tMHz\t\t\tAt Fd\t  mm\t\r\n"
      "1\tEpoxy\t1200.0\t2500.0\t3.000\t1.500\t2.000\t1.25\t1.000\t0.25000\t0.12500\t\r\n"
      "BACKPLATES\r\n"
      "BACK\tMATL\t\tSHEAR\tLONG.\tLONG\tLOSS\tLOSS\tLOSS\tREL.\tTHICK\tTHICK\t\r\n"
      "PLATE\tNAME\t\tVEL.\tVEL.\tIMPED.\tALPHA\tAT F\t   N\tAREA\tLambdas\t  \t\r\n"
      "No.\t\t\tm/sec\tm/sec\tMRayls\tdB/cm\tMHz\t\t\tAt Fd\t  mm\t\r\n"
      "1\tTungsten\t1200.0\t2500.0\t3.000\t1.500\t2.000\t1.25\t0.750\t0.50000\t0.25000\t\r\n"
      "2\tBrass\t1200.0\t2500.0\t3.000\t1.500\t2.000\t1.25\t0.500\t1.00000\t0.50000\t\r\n"
      "ACOUSTIC LOAD IMPEDANCES:   Rear: 10000.0   Rayls\tFront: 1.500   MRayls\r\n"
      "ELECTRICAL TERMINATIONS:   Transmitter output = 50.0  Ohms\tReceiver input = 75.3 Ohms\r\n"
      "ELECTRICAL MATCHING NETWORK: \r\n"
      "No electrical matching network\r\n");
}

TEST_F(ParameterText, OneLayerHasOneColumnOfValues) {
  design.NoPiezo = 1;
  EXPECT_TRUE(Has("PARAMETER\tVALUE  \tUNITS\r\nThickness\t0.40000\tmm\r\n"));
  EXPECT_TRUE(Has("Material\tRear\t\r\nPolarity\t+\t\r\n"));
  EXPECT_FALSE(Has("Connection"));
}

TEST_F(ParameterText, PartialDetailsLeaveTheMaterialOut) {
  const std::string text = Text(2);
  EXPECT_NE(text.find("Polarity & connection\t+\t-\tSeries\r\nACOUSTIC LAYERS\r\n"),
            std::string::npos);
}

TEST_F(ParameterText, HasNeitherStatisticsNorAttenuation) {
  FillMeasurements();
  EXPECT_TRUE(Has("A probe\r\nFREQUENCY AND TIME\r\n"));
  EXPECT_FALSE(Has("ATTENUATION"));
}

TEST_F(ParameterText, TheExcitationHasALineOfItsOwn) {
  design.ExciteType = 2;
  design.ExciteFileName = "pulse.xct";
  design.ExciteLength = 127;
  design.ExciteComment = "measured";
  for (const std::int16_t plotNumber : std::initializer_list<std::int16_t>{17, 27, 34}) {
    view.CurrentPlot = plotNumber;
    EXPECT_TRUE(
        Has("A probe\r\nEXCITATION WAVEFORM\r\n"
            "File name: pulse.xct Length: 127 Comment: measured\r\n"
            "FREQUENCY AND TIME\r\n"));
  }
  view.CurrentPlot = 31;
  EXPECT_FALSE(Has("EXCITATION"));
}

TEST_F(ParameterText, PlatesThatAreMissingAreNamed) {
  design.NoFace = design.NoBack = 0;
  EXPECT_TRUE(Has("ACOUSTIC LAYERS\r\nNo Faceplates\r\nNo Backplates\r\nACOUSTIC LOAD"));
  design.NoBack = 1;
  EXPECT_TRUE(Has("No Faceplates\r\nBACKPLATES\r\nBACK\tMATL"));
}

TEST_F(ParameterText, AllElementsStandOnOneLine) {
  for (int row = 1; row <= kNetworkRows; ++row) {
    design.ElNet(row, 1) = 1;
    design.ElNet(row, 2) = 50;
  }
  const std::string text = Text();
  EXPECT_TRUE(text.find("NETWORK: \r\n1. Series R 50 Ohms, 2. Series R 50 Ohms, 3.") !=
              std::string::npos);
  EXPECT_TRUE(text.ends_with(", 20. Series R 50 Ohms\r\n"));
  design.ElNet(1, 1) = 0;
  EXPECT_TRUE(Text().ends_with("No electrical matching network\r\n"));
}

TEST_F(ParameterText, TextsThatWouldTearTheTableAreSeenInstead) {
  design.DesignTitle = "a\tb";
  design.DataFileName = "caf\xE9.dat";
  EXPECT_TRUE(Has("Data file: caf\xC3\xA9.dat\tDate"));
  EXPECT_TRUE(
      Has("\r\na\xEF\xBF\xBD"
          "b\r\n"));
}

TEST_F(ParameterText, APlateWithoutAVelocityIsReportedAndEndsTheText) {
  design.FaceMatl(1).Velocity = 0;
  std::string text;
  ParasToClipboard(text, 1);
  EXPECT_EQ(
      shownMessages.Lines(),
      std::vector<std::string>{"ERROR in ParasToClipboard of PRINTIT|Error: 11. Division by zero"});
  EXPECT_NE(text.find("ACOUSTIC LAYERS\r\n"), std::string::npos) << "what came before stays";
  EXPECT_EQ(text.find("BACKPLATES"), std::string::npos);
}

}  // namespace
}  // namespace halvorne::testing
