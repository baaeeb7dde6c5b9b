#include "platform/host/ProgramFolder.h"

#include <QCoreApplication>

#include <utility>

namespace Quillane {

namespace {

std::string& Replacement() {
    static std::string folder;
    return folder;
}

} // namespace

std::string ProgramFolder() {
    if (!Replacement().empty())
        return Replacement();
    std::string folder = QCoreApplication::applicationDirPath().toStdString();
    while (!folder.empty() && folder.back() == '/')
        folder.pop_back();
    return folder;
}

void SetProgramFolder(std::string folder) {
    Replacement() = std::move(folder);
}

} // namespace Quillane
