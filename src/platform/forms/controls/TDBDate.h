#pragma once

#include "platform/forms/controls/DTPicker.h"

namespace Quillane {

/// The date box of a search. It works as a DTPicker.
class TDBDate : public DTPicker {
public:
    TDBDate(Screen& screen, std::string name) : DTPicker(screen, std::move(name), "TDBDate") {}
};

} // namespace Quillane
