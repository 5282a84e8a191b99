#include <memory>
#include <string>

#include <gmock/gmock.h>

#include "toolkit/Event.h"

TEST(Event, ReachesOnlyItsNewestHandlerWhichMayReplaceItselfOrDestroyTheEvent) {
  std::vector<std::string> heard;
  auto event = std::make_unique<toolkit::Event<std::string>>();
  (*event)("nobody");
  *event = [&](auto&&) { heard.emplace_back("a handler that was replaced"); };
  const std::string kept = "a text that is too long to lie anywhere but on the heap";
  *event = [&heard, &event, kept](const std::string& text) {
    *event = [&heard, &event, kept](const std::string& second) {
      event.reset();
      heard.push_back(second + kept);
    };
    heard.push_back(text + kept);
  };
  (*event)("first ");
  (*event)("second ");
  EXPECT_THAT(heard, testing::ElementsAre("first " + kept, "second " + kept));
  EXPECT_EQ(event, nullptr);
}
