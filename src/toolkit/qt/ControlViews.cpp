#include "toolkit/qt/ControlViews.h"

#include <cstdlib>
#include <iostream>

#include "toolkit/qt/CanvasView.h"
#include "toolkit/qt/HTMLViewerView.h"
#include "toolkit/qt/LabelView.h"
#include "toolkit/qt/ListboxView.h"
#include "toolkit/qt/PopupMenuView.h"
#include "toolkit/qt/ProgressBarView.h"
#include "toolkit/qt/ProgressWheelView.h"
#include "toolkit/qt/PushButtonView.h"
#include "toolkit/qt/QtText.h"
#include "toolkit/qt/QtWindow.h"
#include "toolkit/qt/TabPanelView.h"
#include "toolkit/qt/TextFieldView.h"

namespace toolkit::qt {
namespace {

/// The view of `control` if it is of type `Kind`, else nullptr.
template <typename View, typename Kind>
QWidget* TryView(Control& control, QWidget& parent) {
  auto* kind = dynamic_cast<Kind*>(&control);
  return kind == nullptr ? nullptr : new View(*kind, parent);
}

}  // namespace

QWidget* MakeView(Control& control, QWidget& parent) {
  for (const auto make :
       {TryView<CanvasView, Canvas>, TryView<HTMLViewerView, HTMLViewer>, TryView<LabelView, Label>,
        TryView<ListboxView, Listbox>, TryView<PopupMenuView, PopupMenu>, TryView<ProgressBarView, ProgressBar>,
        TryView<ProgressWheelView, ProgressWheel>, TryView<PushButtonView, PushButton>, TryView<TabPanelView, TabPanel>,
        TryView<TextFieldView, TextField>}) {
    if (QWidget* view = make(control, parent)) return view;
  }
  std::cerr << "There is no view for the control " << control.Name() << ".\n";
  std::abort();
}

void ShowCommonProperties(QWidget& view, const Control& control) {
  view.setObjectName(ToQt(control.Name()));
  // A screen reader announces each name that is set.
  const QString name = ToQt(control.AccessibleName());
  if (view.accessibleName() != name) view.setAccessibleName(name);
  dynamic_cast<QtWindow&>(*view.window()).Enable(view, control.Enabled());
  view.setVisible(control.IsOnScreen());
}

}  // namespace toolkit::qt
