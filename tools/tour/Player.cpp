#include "tour/Player.h"

#include <cstdlib>
#include <iostream>
#include <utility>

#include <QCoreApplication>
#include <QThread>
#include <QTimer>

#include "toolkit/Application.h"
#include "tour/Screen.h"

namespace tour {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds betweenTicks = 5ms;
constexpr std::chrono::milliseconds paintingTime = 150ms;
constexpr std::chrono::milliseconds longestStep = 15s;

void Print(const char* result, const Step& step, const QElapsedTimer& since, const QString& reasons = {}) {
  const QString time = QString::number(static_cast<double>(since.elapsed()) / 1000, 'f', 2);
  std::cout << result << step.What.toStdString() << " (" << time.toStdString() << " s)\n"
            << reasons.toStdString() << std::flush;
}

}  // namespace

Player::Player(Steps steps, QString pictureFolder, QString pictureSuffix)
    : steps_(std::move(steps)), pictureFolder_(std::move(pictureFolder)), pictureSuffix_(std::move(pictureSuffix)) {}

void Player::Start() {
  QTimer::singleShot(0, QCoreApplication::instance(), [this] { Tick(); });
}

// The next tick is scheduled first, because an input that opens a message box returns only when the box is closed.
// While an input runs, only ticks from a nested event loop (a message box) continue.
void Player::Tick() {
  if (IsOver()) return;
  QTimer::singleShot(betweenTicks, QCoreApplication::instance(), [this] { Tick(); });
  if (!acting_ || QThread::currentThread()->loopLevel() > actingLevel_) Proceed();
}

void Player::Proceed() {
  if (!sinceStart_.isValid()) sinceStart_.start();
  if (input_ < Current().Inputs.size()) {
    const Input& input = Current().Inputs[input_];
    const QString obstacle = input.Obstacle();
    if (obstacle.isEmpty()) return Perform(input);
  } else if (Missing().isEmpty()) {
    if (!settling_.isValid()) settling_.start();
    if (Current().Picture.isEmpty() || settling_.hasExpired(paintingTime.count())) return Pass();
  } else {
    settling_.invalidate();
  }
  if (sinceStart_.hasExpired(longestStep.count())) Fail(Missing());
}

void Player::Perform(const Input& input) {
  ++input_;
  const bool wasActing = std::exchange(acting_, true);
  const int outerLevel = std::exchange(actingLevel_, QThread::currentThread()->loopLevel());
  input.Act();
  acting_ = wasActing;
  actingLevel_ = outerLevel;
}

QString Player::Missing() const {
  if (input_ < Current().Inputs.size()) return "     " + Current().Inputs[input_].Obstacle() + "\n";
  QString missing;
  for (const Condition& condition : Current().Then) {
    if (const QString reason = condition(); !reason.isEmpty()) missing += "     " + reason + "\n";
  }
  return missing;
}

void Player::Pass() {
  const QString& picture = Current().Picture;
  if (!picture.isEmpty() && !screen::SavePicture(pictureFolder_ + "/" + picture + pictureSuffix_ + ".png")) {
    return Fail("     its picture could not be saved\n");
  }
  Print("ok   ", Current(), sinceStart_);
  ++step_;
  input_ = 0;
  sinceStart_.invalidate();
  settling_.invalidate();
  if (HasPlayedAll()) toolkit::Quit(EXIT_SUCCESS);
}

void Player::Fail(const QString& reasons) {
  failed_ = true;
  Print("FAIL ", Current(), sinceStart_, reasons);
  std::cout << "The tour stops here; " << steps_.size() - step_ - 1 << " steps were not played.\n";
  if (screen::SavePicture(pictureFolder_ + "/failed" + pictureSuffix_ + ".png")) {
    std::cout << "What was to be seen is in failed" << pictureSuffix_.toStdString() << ".png.\n";
  }
  toolkit::Quit(EXIT_FAILURE);
}

}  // namespace tour
