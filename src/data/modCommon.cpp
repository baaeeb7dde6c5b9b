#include "data/modCommon.h"

#include "platform/forms/controls/TextBox.h"
#include "platform/forms/core/Boxes.h"
#include "platform/forms/core/Screen.h"
#include "platform/forms/core/Text.h"
#include "platform/host/StationFile.h"
#include "platform/runtime/Failure.h"

#include <algorithm>
#include <exception>
#include <new>

namespace Quillane {

namespace {

constexpr int backspace = 8;
constexpr int point = '.';

void ShowFailure(std::string_view description, std::string_view source) {
    MsgBox({.text = std::string(description),
            .title = std::string(source),
            .icon = BoxIcon::Critical,
            .buttons = BoxButtons::Ok});
}

} // namespace

std::string Capitals(std::string_view text) {
    return FromQt(ToQt(text).toUpper());
}

void ShowError() {
    try {
        throw;
    } catch (const Failure& failure) {
        ShowFailure(failure.Description(), failure.Source());
    } catch (const std::bad_alloc&) {
        ShowFailure("Out of memory", FailureSource::Runtime);
    } catch (const std::exception& other) {
        ShowFailure(other.what(), FailureSource::Runtime);
    }
}

void AllowNumericKey(int& key, const VisualControl& control, bool allowPoint) {
    if ((key >= '0' && key <= '9') || key == backspace)
        return;
    const auto* box = dynamic_cast<const TextBox*>(&control);
    const bool hasPoint = box && box->Text().find('.') != std::string::npos;
    if (key != point || !allowPoint || hasPoint)
        key = 0;
}

bool AllowNumericText(std::string_view text, const VisualControl& control) {
    return std::all_of(text.begin(), text.end(), [&](unsigned char character) {
        int key = character;
        AllowNumericKey(key, control, false);
        return key != 0 && key != backspace;
    });
}

void MarkActiveText(Screen& screen) {
    auto* box = dynamic_cast<TextBox*>(screen.ActiveControl());
    if (!screen.isVisible() || !box || !box->Visible() || !box->Enabled())
        return;
    box->SelectAll();
    box->SetBackColor(VisitedTint);
    box->SetFocus();
}

std::string GetCompanyName(std::int16_t companyNo) {
    auto& names = TheStation().CompanyNames;
    const std::size_t entry =
        companyNo >= 2 && companyNo <= 9 ? static_cast<std::size_t>(companyNo) : 1;
    std::string name = Capitals(names[entry]);
    if (name.empty())
        name = names[1];
    if (TheStation().AskCompanyName != -1)
        return name;
    const std::string answer = InputBox({.prompt = "Give the Company Name \r\n"
                                                   "i-e: BRELLIX\r\n"
                                                   "Leave empty if you dont want.",
                                         .title = "Company Name",
                                         .defaultText = ""});
    if (answer.empty())
        return name;
    names[1] = Capitals(answer);
    return names[1];
}

} // namespace Quillane
