#include <gmock/gmock.h>

#include "tests/support/HandPlatform.h"
#include "toolkit/Platform.h"
#include "toolkit/RuntimeException.h"
#include "toolkit/Window.h"

using testing::ElementsAre;

namespace {

class Plain final : public toolkit::Window {
 public:
  explicit Plain(const char* title) : Window(title, {100, 100}, {50, 50}, {200, 200}) { On(Open, &Plain::Opened); }

  std::function<void()> WhenOpened;

 private:
  void Opened() { WhenOpened(); }
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
  first->WhenOpened = second->WhenOpened = [&] { ++opened; };
  first->Show();
  second->Show();
  first->Show();
  EXPECT_EQ(opened, 2);
  const std::weak_ptr<Plain> gone = first;
  Plain& owned = *std::exchange(first, nullptr);
  ASSERT_FALSE(gone.expired());
  owned.Close();
  EXPECT_TRUE(gone.expired());
  EXPECT_THAT(platform.Quits, ElementsAre());
  second->Close();
  second->Close();
  EXPECT_THAT(platform.Quits, ElementsAre(0));
  EXPECT_THAT(platform.WindowLog,
              ElementsAre("present first", "present second", "front first", "withdraw first", "withdraw second"));
}

TEST(Platform, AWindowThatClosesItselfLivesUntilItsHandlerEnds) {
  const HandPlatform platform;
  auto window = std::make_shared<Plain>("window");
  const std::weak_ptr<Plain> weak = window;
  bool livedOn = false;
  window->WhenOpened = [&] {
    std::exchange(window, nullptr)->Close();
    livedOn = !weak.expired();
  };
  window->Show();
  EXPECT_TRUE(livedOn);
  EXPECT_TRUE(weak.expired());
  EXPECT_EQ(platform.Quits.size(), 1U);
}
