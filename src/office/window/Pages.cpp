#include "office/window/Pages.h"

#include "office/window/ListsPage.h"

#include <array>

namespace Quillane::Office {

namespace {

template <typename PageClass>
QWidget* Make(OfficeSession& session) {
    return new PageClass(session);
}

constexpr std::array pages{
    PageEntry{"Lists", false, Make<ListsPage>},
};

} // namespace

std::span<const PageEntry> AllPages() {
    return pages;
}

} // namespace Quillane::Office
