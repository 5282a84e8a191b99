#include <fstream>

#include <gmock/gmock.h>

#include "shell/App.h"
#include "tests/support/HandPlatform.h"

namespace fs = std::filesystem;

TEST(App, TellsItsVersionAndPaintsABannerOfTheSizeItIsNamedAfter) {
  const App app({10, 0, 12});
  EXPECT_EQ(App::Current().DunmereVersion(), "10.0.12");
  // Width and height of a PNG stand in bytes 16 to 23, the highest byte first.
  const auto size = Logo_Banner_600x164()->Encoded().subspan(16, 8);
  EXPECT_EQ(std::to_integer<int>(size[2]) * 256 + std::to_integer<int>(size[3]), 600);
  EXPECT_EQ(std::to_integer<int>(size[6]) * 256 + std::to_integer<int>(size[7]), 164);
  EXPECT_EQ(Logo_Banner_600x164(), Logo_Banner_600x164());
}

TEST(App, CreatesThePreferenceFolderOnceAndChangesNothingLater) {
  const HandPlatform platform;
  const App app({1, 0, 0});
  const fs::path data = platform.ApplicationDataFolder().Path();
  EXPECT_EQ(app.KajuPrefFolder().Path(), data / "Brackfen_Lookout" / "Kaju");
  std::ofstream(data / "Brackfen_Lookout" / "Kaju" / "kept") << "as it was";
  const auto before = fs::last_write_time(data / "Brackfen_Lookout" / "Kaju");
  EXPECT_EQ(app.KajuPrefFolder().Path(), data / "Brackfen_Lookout" / "Kaju");
  EXPECT_EQ(fs::file_size(data / "Brackfen_Lookout" / "Kaju" / "kept"), 9U);
  EXPECT_EQ(fs::last_write_time(data / "Brackfen_Lookout" / "Kaju"), before);
  EXPECT_EQ(std::distance(fs::recursive_directory_iterator(data), {}), 3) << "something else was created";
}

TEST(App, DropsAPendingUpdateAtItsEndAndNotBefore) {
  for (const bool isPending : {false, true}) {
    HandPlatform platform;
    App app({1, 0, 0});
    const std::weak_ptr<int> pending = [&] {
      auto update = std::make_shared<int>();
      if (isPending) app.UpdateInitiater = {update, reinterpret_cast<Kaju::UpdateInitiater*>(update.get())};
      return std::weak_ptr(update);
    }();
    EXPECT_EQ(app.Run([&] {
      EXPECT_EQ(pending.expired(), !isPending);
      toolkit::Quit(4);
    }),
              4);
    EXPECT_TRUE(pending.expired());
    EXPECT_EQ(app.UpdateInitiater, nullptr);
  }
}
