#include "toolkit/qt/Accessibility.h"

#include <QAccessibleWidget>

#include "toolkit/qt/ProgressBarView.h"
#include "toolkit/qt/ProgressWheelView.h"

namespace toolkit::qt {
namespace {

/// Something that is busy for as long as it is visible. A bar tells how far it is; a wheel knows no end.
class AccessibleProgress final : public QAccessibleWidget, public QAccessibleValueInterface {
 public:
  explicit AccessibleProgress(QWidget& view) : QAccessibleWidget(&view, QAccessible::ProgressBar) {}

  [[nodiscard]] QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    const bool isDone = Bar() != nullptr && Bar()->maximum() > 0 && Bar()->value() == Bar()->maximum();
    state.busy = widget()->isVisible() && !isDone;
    state.readOnly = true;
    return state;
  }
  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface*>(this)
                                               : QAccessibleWidget::interface_cast(type);
  }

  [[nodiscard]] QVariant currentValue() const override { return Bar() == nullptr ? 0 : std::max(Bar()->value(), 0); }
  void setCurrentValue(const QVariant& /*value*/) override {}
  [[nodiscard]] QVariant maximumValue() const override { return Bar() == nullptr ? 0 : Bar()->maximum(); }
  [[nodiscard]] QVariant minimumValue() const override { return 0; }
  [[nodiscard]] QVariant minimumStepSize() const override { return 1; }

 private:
  [[nodiscard]] const QProgressBar* Bar() const { return qobject_cast<const QProgressBar*>(object()); }
};

QAccessibleInterface* Describe(const QString& /*className*/, QObject* object) {
  auto* wheel = dynamic_cast<ProgressWheelView*>(object);
  auto* bar = dynamic_cast<ProgressBarView*>(object);
  if (wheel == nullptr && bar == nullptr) return nullptr;
  return new AccessibleProgress(*static_cast<QWidget*>(object));
}

}  // namespace

void DescribeViews() { QAccessible::installFactory(Describe); }

}  // namespace toolkit::qt
