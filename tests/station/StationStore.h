#pragma once

#include "station/StationDatabase.h"

namespace Quillane {

class StationDatabase::Store {
public:
    virtual ~Store() = default;
    virtual std::string ConfigText() const = 0;
    virtual void Run(const std::string& statements) = 0;
    virtual std::vector<Row> Rows(const std::string& query) = 0;
    virtual void Rename(const std::string& table, const std::string& name) = 0;
    virtual void Loosen(const std::string& table) = 0;
    virtual void Refuse(const Refusal& refusal) = 0;
};

std::unique_ptr<StationDatabase::Store> MakeEmbeddedStore(const std::string& file,
                                                          const NewDatabase& particulars);
std::unique_ptr<StationDatabase::Store> MakeSqlServerStore(const NewDatabase& particulars);

} // namespace Quillane
