#pragma once

#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace Quillane {

/// The actions of an operator in the sign-in dialog.
inline std::function<void(Screen&)> SignInAs(const std::string& name, const std::string& password) {
    return [=](Screen& screen) {
        EXPECT_EQ(screen.Name(), "SignInDialog");
        Testing::ScreenDriver(screen)
            .Type(name)
            .Press(Qt::Key_Return)
            .Type(password)
            .Press(Qt::Key_Return);
    };
}

inline std::function<void(Screen&)> GiveUp() {
    return [](Screen& screen) { Testing::ScreenDriver(screen).Press(Qt::Key_Escape); };
}

} // namespace Quillane
