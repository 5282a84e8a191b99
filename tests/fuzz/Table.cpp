// A service table, as a reply holds it.

#include "service/TessenServicesClient.h"
#include "tests/fuzz/Target.h"
#include "tests/support/HandPlatform.h"
#include "toolkit/JSON.h"
#include "toolkit/Listbox.h"

void FuzzOne(std::string_view input) {
  static HandPlatform platform;
  try {
    const auto item = toolkit::ParseJSONItem(input);
    const boost::json::object* table = item->if_object();
    if (table == nullptr) return;
    for (const bool hasHeadings : {true, false}) {
      toolkit::Listbox list;
      list.ColumnCount(3);
      try {
        TessenServicesClient::TessenListBox_FillDesktopListBox(list, *table, hasHeadings);
      } catch (const toolkit::RuntimeException&) {
        Require(list.ListCount() == 0, "a table that is refused fills nothing");
        continue;
      }
      Require(static_cast<std::size_t>(list.ListCount()) + (hasHeadings ? 1 : 0) == table->size(), "each row is there");
      for (int row = 0; row < list.ListCount(); ++row) static_cast<void>(list.RowText(row));
    }
  } catch (const toolkit::RuntimeException&) {
    return;  // no JSON
  }
}
