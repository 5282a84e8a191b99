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

TEST(App, DropsAPendingUpdateAtItsEndAndNotBefore) {
  HandPlatform platform;
  App app({1, 0, 0});
  auto update = std::make_shared<int>();
  const std::weak_ptr<int> pending = update;
  app.UpdateInitiater = {update, reinterpret_cast<Kaju::UpdateInitiater*>(update.get())};
  update.reset();
  const int status = app.Run([&] {
    EXPECT_FALSE(pending.expired());
    toolkit::Quit(4);
  });
  EXPECT_EQ(status, 4);
  EXPECT_TRUE(pending.expired());
}
