#include "report/report_fixture.h"

#include <algorithm>
#include <cstdio>

#include "plot/plot_state.h"
#include "report/report_layout.h"

namespace halvorne::testing {
namespace {

void FillPiezo(PiezoMaterial& matl, const std::string& name, double velocity) {
  matl.Name = name;
  matl.Velocity = velocity;
  matl.ShearVelocity = 1750.25;
  matl.Density = 7500;
  matl.Ks = 850.125;
  matl.Kt = 0.5;
  matl.TanDe = 0.02;
  matl.TanDm = 0.004;
  matl.Vendor = name + " Ltd";
  matl.DataSource = "measured";
}

void FillPlate(AcousticMaterial& matl, const std::string& name) {
  matl.Name = name;
  matl.Velocity = 2500;
  matl.ShearVelocity = 1200;
  matl.Density = 1200;
  matl.Loss = 1.5F;
  matl.LossFreq = 2;
  matl.LossExp = 1.25F;
}

}  // namespace

ReportTest::ReportTest() {
  MakeSimpleDesign();
  FillDesign();
}

void ReportTest::FillDesign() {
  design.DataFileName = "probe.dat";
  design.DesignTitle = "A probe";
  design.CalcDateTime = "then";
  design.FileVersionText = "Version 4.01";
  design.DesignNew = 0;
  design.NoPiezo = 2;
  design.PZConnect = 1;
  design.PZConnectName = "Series";
  FillPiezo(design.PZMatl(1), "Rear", 4000);
  FillPiezo(design.PZMatl(2), "Front", 4400);
  design.PZThick(1) = 0.0004;
  design.PZThick(2) = 0.00044;
  design.PZPolarity(1) = 1;
  design.PZPolarity(2) = -1;
  design.PZFa(1) = 5e6;
  design.PZFa(2) = 5.5e6;
  design.PZCo(1) = 1.25e-10;
  design.PZCo(2) = 2.5e-10;
  design.ElementSizeText = "12.7 mm disk";
  design.ElementArea = 1.25e-4;
  design.NoFace = 1;
  design.NoBack = 2;
  FillPlate(design.FaceMatl(1), "Epoxy");
  FillPlate(design.BackMatl(1), "Tungsten");
  FillPlate(design.BackMatl(2), "Brass");
  design.FrontThick(1) = 0.000125;
  design.BackThick(1) = 0.00025;
  design.BackThick(2) = 0.0005;
  design.FrontArea(1) = 1;
  design.BackArea(1) = 0.75;
  design.BackArea(2) = 0.5;
  design.ZBackLoad = 10000;
  design.ZFrontLoad = 1.5e6;
  design.TermTx = 50;
  design.TermRx = 75.25;
  view.TimeUnit = "usec";
  view.TimeScale = 1e-6;
}

void ReportTest::FillMeasurements() {
  measured.CFBWValid = measured.PulseWidthValid = measured.AttenValid = true;
  measured.CFBWText[2] = {"dB", "MHz", "MHz", "% CF"};
  measured.CFBWText[3] = {"-6", "5.0", "2.0", "40.00"};
  measured.CFBWText[4] = {"-20", "5.1", "3.0", "58.82"};
  measured.CFBWText[5] = {"-40", "5.2", "4.0", "76.92"};
  measured.PulseWidthText[1] = {"dB", "usec"};
  measured.PulseWidthText[2] = {"-6", "0.3"};
  measured.PulseWidthText[3] = {"-20", "0.5"};
  measured.PulseWidthText[4] = {"-40", "0.9"};
  measured.PeakAmplText = "Pk Ampl = 1.00 dB re 1 V/V";
  design.AttenOn = true;
  measured.AttenCaptions = {"Path length 1.000 cm", "Atten rate 2.000 dB/cm",
                            "Atten freq 3.000 MHz", "Exponent 1.000"};
}

void ReportTest::BeginPage() {
  paper.Scale(0, 10, 10, 0);
  paper.SetFontSize(8);
  paper.MoveTo(0, 5);
  report.ReportLineHeight = 0.0625F;
  LoadTabs({0, 0.15F, 4.0F});
}

std::vector<PrintedText> ReportTest::Printed() const {
  std::vector<PrintedText> texts;
  int page = 1;
  for (const DrawnOperation& operation : paper.Operations()) {
    if (operation.kind == DrawnOperation::Kind::kNewPage) {
      ++page;
    }
    const bool seen = operation.text.find_first_not_of(' ') != std::string::npos;
    if (operation.kind == DrawnOperation::Kind::kText && seen) {
      texts.push_back({page, operation.points[0].x, operation.points[0].y, operation.text,
                       operation.fontSize, operation.fontUnderline});
    }
  }
  return texts;
}

std::vector<std::string> ReportTest::Lines() const {
  std::vector<std::string> lines;
  PrintedText before;
  for (const PrintedText& text : Printed()) {
    char x[32];
    std::snprintf(x, sizeof x, "%.4g|", text.x);
    const bool same = !lines.empty() && text.page == before.page && text.y == before.y;
    if (same) {
      lines.back() += " & " + (x + text.text);
    } else {
      lines.push_back(x + text.text);
    }
    before = text;
  }
  return lines;
}

std::vector<std::string> ReportTest::LinesFrom(const std::string& text, std::size_t count) const {
  const std::vector<std::string> lines = Lines();
  auto found = std::ranges::find_if(lines, [&](const std::string& line) {
    return line.substr(line.find('|') + 1).starts_with(text);
  });
  const auto left = static_cast<std::size_t>(lines.end() - found);
  return {found, found + static_cast<std::ptrdiff_t>(std::min(count, left))};
}

bool ReportTest::HasText(const std::string& part) const {
  return std::ranges::any_of(Printed(), [&](const PrintedText& text) {
    return text.text.find(part) != std::string::npos;
  });
}

}  // namespace halvorne::testing
