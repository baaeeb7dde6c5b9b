#include "platform/forms/TrialScreen.h"

#include <QVBoxLayout>

#include <utility>

namespace Quillane::Testing {

TrialScreen::TrialScreen(std::string name) : Screen(std::move(name), "Trial") {
    auto* column = new QVBoxLayout(this);
    for (VisualControl* control :
         {static_cast<VisualControl*>(&First), static_cast<VisualControl*>(&Second),
          static_cast<VisualControl*>(&Third), static_cast<VisualControl*>(&Around),
          static_cast<VisualControl*>(&BtnGo)})
        column->addWidget(&control->Widget());
    auto* inner = new QVBoxLayout(&Around.Widget());
    inner->addWidget(&InFrame.Widget());
    First.SetTabIndex(0);
    Second.SetTabIndex(1);
    Third.SetTabIndex(2);
    Around.SetTabIndex(3);
    InFrame.SetTabIndex(4);
    BtnGo.SetTabIndex(5);
    FocusObserver = [this](const std::string& event) { Log.push_back(event); };
}

Events TrialScreen::Taken() {
    return std::exchange(Log, {});
}

void TrialScreen::Form_Load() {
    Log.push_back("Form_Load");
    if (OnLoad)
        OnLoad();
}

void TrialScreen::Form_Unload(bool& cancel) {
    Log.push_back("Form_Unload");
    if (OnUnload)
        OnUnload(cancel);
}

void TrialScreen::Form_KeyDown(int& key, int shift) {
    const bool modifier = key == Key::Shift || key == Key::Control || key == Key::Alt;
    if (LogKeys && (LogModifiers || !modifier))
        Log.push_back("KeyDown " + std::to_string(key) + " " + std::to_string(shift));
    if (OnKeyDown)
        OnKeyDown(key, shift);
}

void TrialScreen::Form_KeyPress(int& character) {
    if (LogKeys)
        Log.push_back("KeyPress " + std::to_string(character));
    if (OnKeyPress)
        OnKeyPress(character);
}

} // namespace Quillane::Testing
