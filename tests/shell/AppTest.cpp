#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

#include "shell/App.h"
#include "tests/support/HandPlatform.h"

namespace fs = std::filesystem;

TEST(App, CreatesThePreferenceFolderOnceAndChangesNothingLater) {
  const HandPlatform platform;
  const App app({10, 0, 12});
  EXPECT_EQ(app.DunmereVersion(), "10.0.12");
  const fs::path folder = platform.ApplicationDataFolder().Path() / "Brackfen_Lookout" / "Kaju";
  EXPECT_EQ(app.KajuPrefFolder().Path(), folder);
  std::ofstream(folder / "kept") << "as it was";
  EXPECT_EQ(app.KajuPrefFolder().Path(), folder);
  EXPECT_EQ(fs::file_size(folder / "kept"), 9U);
  EXPECT_EQ(std::distance(fs::recursive_directory_iterator(folder.parent_path().parent_path()), {}), 3);
}
