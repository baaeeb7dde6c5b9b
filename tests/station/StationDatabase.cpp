#include "station/StationDatabase.h"

#include "data/EmbeddedFunctions.h"
#include "station/StationStore.h"

namespace Quillane {

NewDatabase SampleParticulars() {
    return {.companyName = "Veltrane Flour Mills",
            .companyAddress = "14 Canal Road, Okara",
            .companyPhone = "044 555 0147",
            .companyEmail = "gate@veltrane.example",
            .userName = "Nadia",
            .password = "grain",
            .sampleRows = true,
            .hashCost = HashCost::Minimum};
}

NewDatabase ParticularsOf(const std::string& company, const std::string& user,
                          const std::string& password) {
    return {.companyName = company,
            .companyAddress = "",
            .companyPhone = "",
            .companyEmail = "",
            .userName = user,
            .password = password,
            .hashCost = HashCost::Minimum};
}

StationDatabase::StationDatabase(const NewDatabase& particulars, StationEngine engine)
    : store_(engine == StationEngine::Tested && OnSqlServer()
                 ? MakeSqlServerStore(particulars)
                 : MakeEmbeddedStore(folder.File("Account1.db"), particulars)) {}

StationDatabase::~StationDatabase() = default;

std::string StationDatabase::ConfigText() const {
    return store_->ConfigText();
}

void StationDatabase::Open(Connection& connection) const {
    connection.SetEmbeddedSupport(
        {.folder = folder.path, .registerFunctions = RegisterEmbeddedFunctions});
    connection.Open("Driver=SQL Server;" + ConfigText());
    connection.CursorLocation = adUseClient;
}

void StationDatabase::Run(const std::string& statements) const {
    store_->Run(statements);
}

std::vector<StationDatabase::Row> StationDatabase::Rows(const std::string& query) const {
    return store_->Rows(query);
}

void StationDatabase::Rename(const std::string& table, const std::string& name) const {
    store_->Rename(table, name);
}

void StationDatabase::Loosen(const std::string& table) const {
    store_->Loosen(table);
}

void StationDatabase::Refuse(const Refusal& refusal) const {
    store_->Refuse(refusal);
}

void StationDatabase::AcceptAgain() const {
    store_->Run("DROP TRIGGER Closed");
}

} // namespace Quillane
