#pragma once

#include "office/window/OfficeSession.h"

#include <span>

class QWidget;

namespace Quillane::Office {

/// One entry of the navigation. Its page is created when it is first shown, and is then kept.
struct PageEntry {
    const char* title;
    bool isForEveryone; ///< otherwise only for users of level 1
    QWidget* (*make)(OfficeSession& session);
};

inline constexpr const char* BackupTitle = "Backup";

/// All pages, in the order of the navigation; Ctrl+1 shows the first that the user may see.
std::span<const PageEntry> AllPages();

} // namespace Quillane::Office
