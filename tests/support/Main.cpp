// The main function of test programs that show screens, by default off screen.

#include "platform/forms/core/Application.h"
#include "support/BoxAnswers.h"
#include "support/ProcessEnd.h"

#include <gtest/gtest.h>

#include <QtGlobal>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    Quillane::Application application(argc, argv);
    Quillane::Application::setApplicationName("Quillane");
    Quillane::Testing::ForbidUnexpectedBoxes();
    Quillane::Testing::ForbidProcessEnd();
    return RUN_ALL_TESTS();
}
