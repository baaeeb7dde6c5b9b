#pragma once

#include "platform/forms/controls/TDBCombo.h"
#include "platform/forms/controls/TextBox.h"
#include "platform/forms/core/Screen.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Quillane {

/// A screen with two boxes and two pick lists.
class ListScreen : public Screen {
public:
    ListScreen() : Screen("ListScreen", "Lists") {
        TxtWeight.SetTabIndex(0);
        TxtName.SetTabIndex(1);
    }
    TextBox TxtWeight{*this, "TxtWeight"};
    TDBCombo CboFirst{*this, "CboFirst"};
    TDBCombo CboSecond{*this, "CboSecond"};
    TextBox TxtName{*this, "TxtName"};
};

using NamesAndIds = std::vector<std::pair<std::string, std::string>>;

inline NamesAndIds RowsOf(const std::shared_ptr<RowArray>& array) {
    NamesAndIds rows;
    for (int row = 0; array && row < array->RowCount(); ++row)
        rows.emplace_back(array->Get(row, 0), array->Get(row, 1));
    return rows;
}

} // namespace Quillane
