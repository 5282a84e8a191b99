#pragma once

#include <QElapsedTimer>
#include <QString>

#include "tour/Step.h"

namespace tour {

/// Plays steps one after the other while the program runs, and prints a line for each. Driven by timers, so it also
/// continues inside the event loop of a message box that a step has opened.
class Player {
 public:
  /// The names of pictures get `pictureSuffix`, as in "message-dark.png".
  Player(Steps steps, QString pictureFolder, QString pictureSuffix);

  /// Starts with the next round of the event loop. Quits the program after the last step, or the first that fails.
  void Start();
  [[nodiscard]] bool HasPlayedAll() const { return step_ == steps_.size(); }

 private:
  void Tick();
  void Proceed();
  void Perform(const Input& input);
  void Pass();
  void Fail(const QString& reasons);
  [[nodiscard]] QString Missing() const;
  [[nodiscard]] const Step& Current() const { return steps_[step_]; }
  [[nodiscard]] bool IsOver() const { return failed_ || HasPlayedAll(); }

  Steps steps_;
  QString pictureFolder_;
  QString pictureSuffix_;
  std::size_t step_ = 0;
  std::size_t input_ = 0;
  QElapsedTimer sinceStart_;
  /// Time since all conditions hold. A picture is taken only 150 ms later, when the screen has been painted.
  QElapsedTimer settling_;
  bool acting_ = false;
  int actingLevel_ = 0;
  bool failed_ = false;
};

}  // namespace tour
