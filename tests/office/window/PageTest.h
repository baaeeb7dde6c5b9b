#pragma once

#include "WindowDriver.h"

#include "../records/OfficeDatabase.h"
#include "office/window/OfficeSession.h"

#include <gtest/gtest.h>

#include <QMainWindow>

namespace Quillane::Office {

/// One page in a window, for a user of level 1, on a database with the sample rows.
class PageTest : public testing::Test {
protected:
    /// Shows a page and gives it the focus. The window owns it.
    void ShowPage(QWidget* page) {
        constexpr QSize size(1090, 640);
        window.setCentralWidget(page);
        window.resize(size);
        ShowWindow(window);
        page->setFocus();
    }

    OfficeDatabase database;
    OfficeSession session{.connection = database.connection,
                          .folder = database.folder.path,
                          .user = "Nadia",
                          .level = 1,
                          .hashCost = HashCost::Minimum};
    QMainWindow window;
};

} // namespace Quillane::Office
