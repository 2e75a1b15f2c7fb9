#include "materials/data_sources.h"

#include <QSqlDatabase>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>
#include <vector>

#include "support/fresh_program.h"

namespace halvorne::testing {
namespace {

constexpr const char* kName = "acoustic";

class DataSourcesTest : public FreshProgram {
 protected:
  DataSourcesTest() {
    for (const char* file : {"first.mdb", "second.mdb"}) {
      std::filesystem::create_directories(folder_);
      std::ofstream(folder_ / file) << "";
    }
  }
  ~DataSourcesTest() override {
    dataSources = {};
    std::filesystem::remove_all(folder_);
  }

  std::string Path(const std::string& file) const { return (folder_ / file).string(); }
  static bool Registered() { return dataSources.Files.contains(kName); }
  static std::string RegisteredPath() { return dataSources.Files.at(kName); }

 private:
  const std::filesystem::path folder_ =
      std::filesystem::temp_directory_path() / ("halvorne-sources-" + std::to_string(getpid()));
};

TEST_F(DataSourcesTest, AreAddedWithTheirFile) {
  MakeDSN(kName, kDatabaseDriver, Path("first.mdb"), kAddDataSource);
  ASSERT_TRUE(Registered());
  EXPECT_EQ(RegisteredPath(), Path("first.mdb"));
  EXPECT_TRUE(shownMessages.Shown().empty());
}

TEST_F(DataSourcesTest, ThatAreRegisteredStayAsTheyAreWhateverTheirPath) {
  MakeDSN(kName, kDatabaseDriver, Path("first.mdb"), kAddDataSource);
  MakeDSN(kName, kDatabaseDriver, Path("second.mdb"), kAddDataSource);
  EXPECT_EQ(RegisteredPath(), Path("first.mdb"));
  MakeDSN(kName, kDatabaseDriver, Path("missing.mdb"), kAddDataSource);
  EXPECT_TRUE(shownMessages.Shown().empty()) << "not even the file is looked for";
}

TEST_F(DataSourcesTest, AreRemovedWhenTheyAreRegistered) {
  MakeDSN(kName, kDatabaseDriver, Path("first.mdb"), kRemoveDataSource);
  EXPECT_FALSE(Registered());
  MakeDSN(kName, kDatabaseDriver, Path("first.mdb"), kAddDataSource);
  MakeDSN(kName, kDatabaseDriver, Path("first.mdb"), kRemoveDataSource);
  EXPECT_FALSE(Registered());
  EXPECT_TRUE(shownMessages.Shown().empty());
}

TEST_F(DataSourcesTest, LoadNoDatabaseBeforeAStoreIsLookedInto) {
  MakeDSN(kName, kDatabaseDriver, Path("first.mdb"), kAddDataSource);
  EXPECT_FALSE(QSqlDatabase::contains(QString::fromLatin1(kName)));
}

TEST_F(DataSourcesTest, KnowNoOtherRequest) {
  MakeDSN(kName, kDatabaseDriver, Path("first.mdb"), 2);
  EXPECT_FALSE(Registered());
  MakeDSN(kName, kDatabaseDriver, Path("first.mdb"), kAddDataSource);
  MakeDSN(kName, kDatabaseDriver, Path("second.mdb"), 2);
  EXPECT_EQ(RegisteredPath(), Path("first.mdb"));
}

TEST_F(DataSourcesTest, WithoutTheirFileAreToldOfAndNotAdded) {
  MakeDSN(kName, kDatabaseDriver, Path("missing.mdb"), kAddDataSource);
  EXPECT_FALSE(Registered());
  ASSERT_EQ(shownMessages.Shown().size(), 1U);
  const Message& box = shownMessages.Shown()[0];
  EXPECT_EQ(box.text, "Database file doesn't exist!");
  EXPECT_EQ(box.icon, MessageIcon::kCritical);
  EXPECT_EQ(box.buttons, MessageButtons::kOk);
}

}  // namespace
}  // namespace halvorne::testing
