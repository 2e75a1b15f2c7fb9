#pragma once

#include <gtest/gtest.h>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace halvorne::testing {

using Words = std::vector<std::string>;

/// What a run of the program left behind.
struct Outcome {
  int status = -1;  ///< exit status; minus the signal that ended it
  std::string out;
  std::string err;
  double seconds = 0;  ///< processor time
  long peakKib = 0;    ///< largest resident size
};

/// Bounds and surroundings of a run.
struct Surroundings {
  long mostFileBytes = -1;  ///< size that no file may pass; none when negative
  std::string outTo = {};   ///< file or device that standard output goes to; empty: it is kept
  std::string inFrom = {};  ///< file or device that standard input comes from; empty: the test's
  std::vector<std::string> environment = {};  ///< "NAME=VALUE" beside the test's own
  /// Closed folders are closed to the administrator too.
  bool rightsCount = false;
};

/// Tests of the program halvorne-batch itself, with a folder of their own.
class BatchTest : public ::testing::Test {
 public:
  BatchTest(const BatchTest&) = delete;
  BatchTest& operator=(const BatchTest&) = delete;

 protected:
  BatchTest();
  ~BatchTest() override;

  /// Runs the program and waits for it. Ends the test process when it cannot be started.
  Outcome Run(const Words& words, const Surroundings& surroundings = {}) const;
  /// Runs it and expects success in silence; returns standard output.
  std::string Output(const Words& words) const;

  /// A path in the test's folder.
  std::string Path(const std::string& name) const { return folder_ + "/" + name; }
  /// Writes a file into the folder and returns its path.
  std::string Write(const std::string& name, const std::string& bytes) const;
  /// Names in the folder, sorted, but for the program's standard streams.
  std::vector<std::string> Names() const;

 private:
  std::string folder_;
};

/// Path of a shipped design by its name without ending.
std::string Shipped(const std::string& name);

/// A whole file's bytes; empty where there is none.
std::string ReadFile(const std::string& path);

/// The lines of a text without their ends, CR LF or LF.
std::vector<std::string> LinesOf(const std::string& text);

/// Fields of a line between separators.
std::vector<std::string> FieldsOf(const std::string& line, char separator);

/// A table of CSV with a header line: columns of numbers, as they were read back, and of texts.
struct Table {
  std::string header;
  std::vector<std::vector<std::string>> rows;
  double Number(std::size_t row, std::size_t column) const;
};

/// The tables of a CSV output, which empty lines part.
std::vector<Table> TablesOf(const std::string& csv);

/// What a shipped design's file says, found by its labels without the program's reader.
struct StoredDesign {
  explicit StoredDesign(const std::string& path);

  std::string title;
  double freqStart = 0;
  double freqStop = 0;
  int freqPoints = 0;
  int timePoints = 0;
  double termTx = 0;
  double termRx = 0;
  /// Curve by label, "Zin Electric Re, Im": its pairs.
  std::map<std::string, std::vector<std::pair<double, double>>> curves;
};

}  // namespace halvorne::testing
