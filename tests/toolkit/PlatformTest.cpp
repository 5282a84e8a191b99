#include <gmock/gmock.h>

#include "tests/support/HandPlatform.h"
#include "toolkit/Platform.h"
#include "toolkit/RuntimeException.h"
#include "toolkit/Window.h"

using testing::ElementsAre;

namespace {

class Plain final : public toolkit::Window {
 public:
  explicit Plain(const char* title) : Window(title, {100, 100}, {50, 50}, {200, 200}) {}
};

}  // namespace

TEST(Platform, AnExceptionEndsInAMessageAndTheProgramGoesOn) {
  HandPlatform platform;
  platform.Post([] { throw 7; });
  platform.Post([] { toolkit::Platform::Current().Quit(3); });
  platform.Post([] { FAIL() << "ran after the end"; });
  EXPECT_EQ(platform.RunLoop([] { throw toolkit::RuntimeException("wrong <b>start</b>"); }), 3);
  EXPECT_THAT(platform.Messages, ElementsAre("wrong <b>start</b>", "Something went wrong that has no description."));
}

TEST(Platform, OwnsOpenWindowsAndQuitsWithTheLast) {
  HandPlatform platform;
  auto first = std::make_shared<Plain>("first");
  const auto second = std::make_shared<Plain>("second");
  int opened = 0;
  first->Open = [&] { ++opened; };
  first->Show();
  second->Show();
  first->Show();
  EXPECT_EQ(opened, 1);
  const std::weak_ptr<Plain> gone = std::exchange(first, nullptr);
  ASSERT_FALSE(gone.expired());
  gone.lock()->Close();
  EXPECT_TRUE(gone.expired());
  EXPECT_THAT(platform.Quits, ElementsAre());
  second->Close();
  second->Close();
  EXPECT_THAT(platform.Quits, ElementsAre(0));
  EXPECT_THAT(platform.WindowLog,
              ElementsAre("present first", "present second", "front first", "withdraw first", "withdraw second"));
}
