#include "office/window/Pages.h"

#include "office/window/BackupPage.h"
#include "office/window/CompanyPage.h"
#include "office/window/DayBookPage.h"
#include "office/window/ListsPage.h"
#include "office/window/MovePage.h"
#include "office/window/StationPage.h"
#include "office/window/UsersPage.h"

#include <array>

namespace Quillane::Office {

namespace {

template <typename PageClass>
QWidget* Make(OfficeSession& session) {
    return new PageClass(session);
}

constexpr std::array pages{
    PageEntry{"Lists", false, Make<ListsPage>},      PageEntry{"Users", false, Make<UsersPage>},
    PageEntry{"Company", false, Make<CompanyPage>},  PageEntry{"Station", false, Make<StationPage>},
    PageEntry{BackupTitle, false, Make<BackupPage>}, PageEntry{"Day book", true, Make<DayBookPage>},
    PageEntry{"Move", false, Make<MovePage>},
};

} // namespace

std::span<const PageEntry> AllPages() {
    return pages;
}

} // namespace Quillane::Office
