#pragma once

#include "platform/forms/controls/DTPicker.h"

namespace Quillane {

/// A date box of a search, shown dd/mm/yyyy. It handles as a DTPicker does; `Change` runs for every
/// change by the operator, part by part, and not for a value from code.
class TDBDate : public DTPicker {
public:
    TDBDate(Screen& screen, std::string name) : DTPicker(screen, std::move(name), "TDBDate") {}
};

} // namespace Quillane
