#include "toolkit/qt/Accessibility.h"

#include <QAccessibleWidget>
#include <QAction>

#include "toolkit/Platform.h"
#include "toolkit/qt/AccessiblePage.h"
#include "toolkit/qt/CanvasView.h"
#include "toolkit/qt/DialogBox.h"
#include "toolkit/qt/ListTable.h"
#include "toolkit/qt/ProgressBarView.h"
#include "toolkit/qt/ProgressWheelView.h"
#include "toolkit/qt/QtWindow.h"

namespace toolkit::qt {
namespace {

/// Busy while it is visible. A bar also has a value; a wheel has none.
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

/// The container of a list's table. Its actions activate the selected row and run the list's commands, since Qt
/// provides no actions for a table.
class AccessibleList final : public QAccessibleWidget {
 public:
  AccessibleList(QWidget& view, ListTable& table) : QAccessibleWidget(&view, QAccessible::Grouping), table_(table) {}

  [[nodiscard]] QStringList actionNames() const override {
    QStringList names{setFocusAction(), activate};
    for (const QAction* command : widget()->actions()) names.append(command->text());
    return names;
  }
  // Deferred: the caller is blocked until this returns, and a command may open a dialog.
  void doAction(const QString& name) override {
    QMetaObject::invokeMethod(
        widget(), [view = widget(), &table = table_, name] { Do(name, *view, table); }, Qt::QueuedConnection);
  }

 private:
  static inline const QString activate = QStringLiteral("Activate");

  static void Do(const QString& name, const QWidget& view, ListTable& table) {
    if (name == setFocusAction()) table.setFocus();
    if (name == activate && table.List().ListIndex() >= 0) {
      Platform::Current().Dispatch([&] { table.List().Activate(); });
    }
    for (QAction* command : view.actions()) {
      if (command->text() == name) command->trigger();
    }
  }

  ListTable& table_;
};

QAccessibleInterface* Describe(const QString& /*className*/, QObject* object) {
  auto* view = qobject_cast<QWidget*>(object);
  if (view == nullptr) return nullptr;
  if (dynamic_cast<QtWindow*>(view) != nullptr) return new QAccessibleWidget(view, QAccessible::Window);
  if (dynamic_cast<DialogBox*>(view) != nullptr) return new QAccessibleWidget(view, QAccessible::AlertMessage);
  if (dynamic_cast<CanvasView*>(view) != nullptr) return new QAccessibleWidget(view, QAccessible::Graphic);
  if (auto* page = qobject_cast<QTextBrowser*>(view)) return new AccessiblePage(*page);
  if (dynamic_cast<ProgressWheelView*>(view) != nullptr) return new AccessibleProgress(*view);
  if (dynamic_cast<ProgressBarView*>(view) != nullptr) return new AccessibleProgress(*view);
  if (auto* table = dynamic_cast<ListTable*>(view->focusProxy())) return new AccessibleList(*view, *table);
  return nullptr;
}

}  // namespace

void DescribeViews() { QAccessible::installFactory(Describe); }

}  // namespace toolkit::qt
