#include <QImage>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <algorithm>
#include <cmath>

#include "batch/batch_run.h"

namespace halvorne::testing {
namespace {

constexpr const char* kImaging = "imaging_5mhz_two_layer";
constexpr const char* kStack = "stack_two_layer_parallel";

/// What one of the PDF tools says of a file.
std::string Poppler(const QString& tool, QStringList words, const std::string& file) {
  QProcess process;
  process.start(tool, words << QString::fromStdString(file) << QStringLiteral("-"));
  EXPECT_TRUE(process.waitForFinished()) << "poppler-utils are missing";
  EXPECT_EQ(process.exitCode(), 0);
  return process.readAllStandardOutput().toStdString();
}

std::string InfoOf(const std::string& file) {
  QProcess process;
  process.start(QStringLiteral("pdfinfo"), {QString::fromStdString(file)});
  EXPECT_TRUE(process.waitForFinished()) << "poppler-utils are missing";
  EXPECT_EQ(process.readAllStandardError().toStdString(), "") << "the file is damaged";
  return process.readAllStandardOutput().toStdString();
}

bool Says(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

/// Settings that fill every table: ten plates on either side and twenty network rows.
Words DenseSettings() {
  Words words;
  const auto set = [&](const std::string& name, int index, const std::string& value) {
    words.insert(words.end(), {"--set", name + "(" + std::to_string(index) + ")" + value});
  };
  words.insert(words.end(), {"--set", "NoFace=10", "--set", "NoBack=10"});
  for (int i = 1; i <= 10; ++i) {
    for (const auto& [matl, chain] : {std::pair{"FaceMatl", "Front"}, {"BackMatl", "Back"}}) {
      set(matl, i, ".Name=Epoxy, alumina loaded, 12345678");
      set(matl, i, ".Velocity=12345.6");
      set(matl, i, ".ShearVelocity=12345.6");
      set(matl, i, ".Density=12345");
      set(matl, i, ".Loss=1234.567");
      set(matl, i, ".LossFreq=1234.567");
      set(std::string(chain) + "Thick", i, "=0.0123456");
      set(std::string(chain) + "Area", i, "=1");
    }
  }
  for (int row = 1; row <= 20; ++row) {
    const std::string element = "ElNet(" + std::to_string(row) + ",";
    words.insert(words.end(), {"--set", element + "1)=9"});
    for (const char* column : {"2)", "3)", "4)", "5)"}) {
      words.insert(words.end(), {"--set", element + column + "=1.5e-6"});
    }
  }
  return words;
}

class BatchReport : public BatchTest {
 protected:
  /// Prints a report to a file and returns its path.
  std::string Print(const std::string& name, Words words, const char* design = kImaging) const {
    words.insert(words.begin(), {"report", Shipped(design), "-o", Path(name)});
    const Outcome run = Run(words, {.environment = {"SOURCE_DATE_EPOCH=1000000000"}});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out + run.err, "");
    return Path(name);
  }
  std::vector<QJsonObject> Record(const Words& words, const char* design = kImaging) const {
    std::vector<QJsonObject> objects;
    for (const std::string& line : LinesOf(ReadFile(Print("report.json", words, design)))) {
      objects.push_back(QJsonDocument::fromJson(QByteArray::fromStdString(line)).object());
      EXPECT_FALSE(objects.back().isEmpty()) << line;
    }
    return objects;
  }
};

TEST_F(BatchReport, APdfHasItsTitleItsAuthorItsDateAndSelectableText) {
  const std::string file = Print("report.pdf", {"--plot", "31", "--form", "1"});
  const std::string info = InfoOf(file);
  EXPECT_TRUE(Says(info, "Title:           5 MHz imaging element, two quarter-wave matching"))
      << info;
  EXPECT_TRUE(Says(info, "Author:          Halvorne\n")) << info;
  EXPECT_TRUE(Says(info, "CreationDate:    Sun Sep  9 01:46:40 2001")) << info;
  EXPECT_TRUE(Says(info, "Page size:       595 x 842 pts (A4)")) << info;
  const std::string text = Poppler("pdftotext", {"-layout"}, file);
  EXPECT_TRUE(Says(text, "Halvorne Transducer Design Report")) << text;
  EXPECT_TRUE(Says(text, "Printed: 09/09/01 01:46:40"));
  EXPECT_TRUE(Says(text, "TITLE: 5 MHz imaging element, two quarter-wave matching layers"));
  EXPECT_TRUE(Says(text, "Center frequency at -6, -20, and -40 dB:"));
  EXPECT_TRUE(Says(text, "1. Shunt L 1.26 uH"));
}

TEST_F(BatchReport, APdfKeepsItsFontsAndDrawsTheGraphInLines) {
  const std::string file = Print("report.pdf", {});
  QProcess fonts;
  fonts.start(QStringLiteral("pdffonts"), {QString::fromStdString(file)});
  ASSERT_TRUE(fonts.waitForFinished());
  const Words rows = LinesOf(fonts.readAllStandardOutput().toStdString());
  ASSERT_GT(rows.size(), 2U);
  for (std::size_t i = 2; i < rows.size(); ++i) {
    EXPECT_TRUE(Says(rows[i], "yes")) << "not embedded: " << rows[i];
    EXPECT_FALSE(Says(rows[i], "Type 3")) << rows[i];
  }
  QProcess images;
  images.start(QStringLiteral("pdfimages"), {"-list", QString::fromStdString(file)});
  ASSERT_TRUE(images.waitForFinished());
  EXPECT_LE(LinesOf(images.readAllStandardOutput().toStdString()).size(), 2U) << "only a heading";
}

TEST_F(BatchReport, TheSameDesignGivesTheSameBytes) {
  for (const char* name : {"report.pdf", "report.json", "report.png"}) {
    const std::string first = ReadFile(Print(name, {}));
    EXPECT_GT(first.size(), 1000U);
    EXPECT_TRUE(first == ReadFile(Print(name, {}))) << name;
  }
}

TEST_F(BatchReport, LetterPaperIsWiderAndShorter) {
  const std::string info = InfoOf(Print("report.pdf", {"--paper", "Letter"}));
  EXPECT_TRUE(Says(info, "612 x 792 pts (letter)")) << info;
  const auto a4 = Record({}).front();
  const auto letter = Record({"--paper", "Letter"}).front();
  EXPECT_GT(letter["width_pt"].toDouble(), a4["width_pt"].toDouble());
  EXPECT_LT(letter["height_pt"].toDouble(), a4["height_pt"].toDouble());
}

TEST_F(BatchReport, ALongTraceStaysBelowAMegabyte) {
  const std::string file =
      Print("report.pdf", {"--set", "NoTimePts=65536", "--time-window", "99.5", "--plot", "33"});
  EXPECT_LT(ReadFile(file).size(), 1000000U);
  EXPECT_TRUE(Says(Poppler("pdftotext", {"-layout"}, file), "Time domain: 65536"));
}

TEST_F(BatchReport, TheDensestDesignTakesTwoPagesAndItsColumnsKeepApart) {
  const Words dense = DenseSettings();
  Words words = dense;
  words.insert(words.end(), {"--plot", "31", "--form", "1"});
  const auto record = Record(words, kStack);
  EXPECT_EQ(record.front()["pages"].toInt(), 2);
  const QJsonObject* before = nullptr;
  for (const QJsonObject& object : record) {
    if (object["op"] != "text" || object["size"].toDouble() > 8) {
      continue;
    }
    const double right = object["x"].toDouble() + object["w"].toDouble();
    EXPECT_LE(right, 10 + 1e-5) << object["text"].toString().toStdString();
    EXPECT_GE(object["y"].toDouble(), 0.1) << "below the paper";
    if (before != nullptr && (*before)["page"] == object["page"] && (*before)["y"] == object["y"]) {
      EXPECT_LT((*before)["x"].toDouble() + (*before)["w"].toDouble(), object["x"].toDouble())
          << (*before)["text"].toString().toStdString() << " and "
          << object["text"].toString().toStdString();
    }
    before = &object;
  }
  Print("dense.png", words, kStack);
  EXPECT_TRUE(std::ranges::count(Names(), "dense-1.png") == 1);
  EXPECT_TRUE(std::ranges::count(Names(), "dense-2.png") == 1);
  EXPECT_TRUE(std::ranges::count(Names(), "dense.png") == 0);
  EXPECT_TRUE(Says(InfoOf(Print("dense.pdf", words, kStack)), "Pages:           2\n"));
}

TEST_F(BatchReport, APngOfOnePageHasTheNameThatWasAskedFor) {
  const QImage page(QString::fromStdString(Print("report.png", {})));
  EXPECT_EQ(page.size(), QSize(1240, 1754)) << "A4 at 150 dots an inch";
  EXPECT_EQ(page.pixel(10, 10), qRgb(255, 255, 255)) << "the margin";
}

TEST_F(BatchReport, TheRecordHoldsTheGraphAndTheTextInPageUnits) {
  const auto record = Record({"--plot", "31", "--form", "1", "--detail", "2"});
  const QJsonObject& head = record.front();
  EXPECT_EQ(head["op"], "report");
  EXPECT_EQ(head["plot"], 31);
  EXPECT_EQ(head["form"], 1);
  EXPECT_EQ(head["detail"], 2);
  EXPECT_EQ(head["pages"], 1);
  EXPECT_GT(head["line_height"].toDouble(), 0.1);
  // A single graph's box from (0, 0) to (10, 10) in the scale (-2, 11.5)-(12, -14.5).
  const auto box = std::ranges::find_if(record, [](const auto& o) { return o["op"] == "box"; });
  ASSERT_NE(box, record.end());
  EXPECT_NEAR((*box)["x1"].toDouble(), 2.0 / 1.4, 1e-5);
  EXPECT_NEAR((*box)["y1"].toDouble(), 10 - 11.5 / 2.6, 1e-5);
  EXPECT_NEAR((*box)["x2"].toDouble(), 12.0 / 1.4, 1e-5);
  EXPECT_NEAR((*box)["y2"].toDouble(), 10 - 1.5 / 2.6, 1e-5);
  const auto trace =
      std::ranges::find_if(record, [](const auto& o) { return o["op"] == "polyline"; });
  ASSERT_NE(trace, record.end());
  EXPECT_EQ((*trace)["color"], "#000000");
  const auto first = std::ranges::find_if(
      record, [](const auto& o) { return o["text"] == "HALVORNE INPUT PARAMETERS"; });
  ASSERT_NE(first, record.end());
  EXPECT_EQ((*first)["y"], 5);
  EXPECT_EQ((*first)["size"], 8);
  for (const QJsonObject& object : record) {
    EXPECT_NE(object["text"].toString(), "Density") << "the details are partial";
  }
}

TEST_F(BatchReport, InputsAreTheTextOfTheClipboard) {
  const std::string text = Output({"inputs", Shipped(kImaging)});
  EXPECT_TRUE(text.starts_with("HALVORNE INPUT PARAMETERS \tProgram version: "));
  EXPECT_TRUE(Says(text, "\r\nPARAMETER\tVALUE  \tUNITS\r\n"));
  EXPECT_TRUE(Says(text, "\r\nLongititudinal impedance\t34.313\tMRayls\r\n"));
  EXPECT_TRUE(text.ends_with("\r\n1. Shunt L 1.26 uH\r\n"));
  EXPECT_FALSE(Says(Output({"inputs", Shipped(kImaging), "--detail", "2"}), "Longitit"));
}

TEST_F(BatchReport, AnOpenedBurstPrintsItsOwnCycles) {
  const std::string text = Output({"inputs", Shipped("burst_3mhz_dispersive"), "--plot", "34"});
  EXPECT_TRUE(Says(text, "\r\nEXCITATION WAVEFORM\r\nSine wave burst 3. MHz, ")) << text;
  EXPECT_FALSE(Says(text, "0. cycles")) << text;
}

TEST_F(BatchReport, WhatCannotBeMeantIsRefused) {
  const std::string in = Shipped(kImaging);
  for (const Words& words : {Words{"report", in},
                             {"report", in, "-o", Path("report.txt")},
                             {"report", in, "-o", Path("r.pdf"), "--paper", "A5"},
                             {"report", in, "-o", Path("r.pdf"), "--detail", "3"},
                             {"report", in, "-o", Path("r.pdf"), "--plot", "18"},
                             {"report", in, "-o", Path("r.pdf"), "--form", "99"},
                             {"report", in, "-o", Path("r.pdf"), "--size", "100x100"},
                             {"inputs", in, "--paper", "A4"},
                             {"plot", in, "--plot", "11", "-o", Path("p.png"), "--detail", "1"}}) {
    const Outcome run = Run(words);
    EXPECT_EQ(run.status, 2) << run.err;
    EXPECT_NE(run.err, "");
  }
  EXPECT_TRUE(Names().empty());
}

TEST_F(BatchReport, AFileThatCannotBeWrittenIsToldAndLeavesNothing) {
  const Outcome folder = Run({"report", Shipped(kImaging), "-o", "/no/such/folder/r.pdf"});
  EXPECT_EQ(folder.status, 1);
  EXPECT_TRUE(Says(folder.err, "/no/such/folder/r.pdf could not be written")) << folder.err;
  for (const char* name : {"r.pdf", "r.json", "r.png"}) {
    const Outcome full =
        Run({"report", Shipped(kImaging), "-o", Path(name)}, {.mostFileBytes = 4096});
    EXPECT_EQ(full.status, 1) << name;
    EXPECT_TRUE(Says(full.err, "could not be written")) << full.err;
  }
  EXPECT_TRUE(Names().empty());
}

TEST_F(BatchReport, OddTextsArePrintedOrSeen) {
  const std::string title = "DesignTitle=" + std::string(10000, 'w');
  const std::string pages = Poppler("pdftotext", {"-layout"}, Print("long.pdf", {"--set", title}));
  EXPECT_GT(std::ranges::count(pages, 'w'), 9800) << "but for what the rounding leaves over";
  const Words odd{"--set", "DesignTitle=a\t\\b", "--set", "PZMatl(1).Name=x\xE9\x01y"};
  EXPECT_TRUE(
      Says(Poppler("pdftotext", {"-layout"}, Print("odd.pdf", odd)), "TITLE: a\xEF\xBF\xBD\\b"));
  const std::string record = ReadFile(Print("odd.json", odd));
  EXPECT_TRUE(Says(record, "TITLE:  a\xEF\xBF\xBD\\\\b"));
  EXPECT_TRUE(Says(record, "x\xC3\xA9\xEF\xBF\xBDy"));
}

}  // namespace
}  // namespace halvorne::testing
