#include "data/SchemaUpgrade.h"

#include "data/Catalogue.h"
#include "data/EmbeddedScripts.h"
#include "platform/ado/Connection.h"
#include "platform/forms/Text.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/Numbers.h"

#include <QFile>
#include <QFileInfo>
#include <sqlite3.h>

#include <array>
#include <vector>

#ifndef _WIN32
#include <unistd.h>
#else
#include <io.h>
#endif

namespace Quillane {

namespace {

/// The statements of a script; the engine's own scanner tells where one ends, so that a semicolon
/// within a text or a comment is none.
std::vector<std::string> Statements(std::string_view script) {
    std::vector<std::string> statements;
    std::string text;
    for (const char character : script) {
        text += character;
        if (character == ';' && sqlite3_complete(text.c_str())) {
            statements.push_back(text.substr(0, text.size() - 1));
            text.clear();
        }
    }
    return statements;
}

void RunStep(Connection& connection, const SchemaStep& step) {
    connection.BeginTrans();
    try {
        for (const std::string& statement : Statements(step.script))
            connection.Execute(statement);
        connection.Execute("Delete From StationSchema");
        connection.Execute("Insert Into StationSchema (SchemaVersion) Values (" +
                           NumberText(step.version) + ")");
        connection.CommitTrans();
    } catch (const Failure&) {
        connection.RollbackTrans();
        throw;
    }
}

std::string Quoted(std::string_view text) {
    std::string quoted = "'";
    for (const char character : text)
        quoted.append(character == '\'' ? 2 : 1, character);
    return quoted + "'";
}

std::string NameOfCopy(const std::string& file, double toVersion) {
    const QFileInfo info(ToQt(file));
    const QString base =
        info.path() + "/" + info.completeBaseName() + "-before-" + ToQt(NumberText(toVersion));
    QString name = base + ".db";
    for (int number = 2; QFile::exists(name); ++number)
        name = base + "-" + QString::number(number) + ".db";
    return FromQt(name);
}

void BringToDisk(QFile& file) {
#ifndef _WIN32
    const bool done = file.open(QIODevice::ReadWrite) && ::fsync(file.handle()) == 0;
#else
    const bool done = file.open(QIODevice::ReadWrite) && ::_commit(file.handle()) == 0;
#endif
    if (!done)
        throw Failure(FailureNumber::PathAccess,
                      "The copy " + FromQt(file.fileName()) + " cannot be brought to the disk");
    file.close();
}

} // namespace

std::span<const SchemaStep> SchemaSteps() {
    static const std::array<SchemaStep, 1> steps{SchemaStep{1, EmbeddedScripts::UpgradeTo1}};
    return steps;
}

double SchemaVersionOfProgram() {
    return SchemaSteps().back().version;
}

double ReadSchemaVersion(Connection& connection) {
    if (!TableExists(connection, "StationSchema"))
        return 0;
    const Recordset rows = connection.Execute("Select SchemaVersion From StationSchema");
    if (rows.RecordCount() == 0)
        return 0;
    if (rows.RecordCount() > 1)
        return UnreadableSchemaVersion;
    try {
        const double version = rows.Fields(0).Number();
        return version >= 0 ? version : UnreadableSchemaVersion;
    } catch (const Failure&) {
        return UnreadableSchemaVersion;
    }
}

void RunSchemaSteps(Connection& connection, double from, std::span<const SchemaStep> steps) {
    for (const SchemaStep& step : steps)
        if (step.version > from)
            RunStep(connection, step);
}

std::string CopyBeforeUpgrade(Connection& connection, const std::string& file, double toVersion) {
    const std::string name = NameOfCopy(file, toVersion);
    // The copy gets its name when it is complete: a half-written one is never taken for it.
    const std::string unfinished = file + ".copy";
    QFile::remove(ToQt(unfinished));
    connection.Execute("VACUUM INTO " + Quoted(unfinished));
    QFile copy(ToQt(unfinished));
    BringToDisk(copy);
    if (!copy.rename(ToQt(name)))
        throw Failure(FailureNumber::PathAccess, FromQt(copy.errorString()) + ": " + name);
    return name;
}

} // namespace Quillane
