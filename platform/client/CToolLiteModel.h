#pragma once

#include "CLiteModel.h"
#include "CVrkToolObject.h"

#include <QStringList>
#include <set>
#include <string>

/// Fetches whole reference tables into a CLiteModel, each with KeyLink as key 0; Tables has nameLat as key
/// 1. A table that cannot be fetched is missing from the model; the others are there.
class VRK_EXPORT CToolLiteModel : public CVrkToolObject
{
    Q_OBJECT

public:
    explicit CToolLiteModel(CVrkCliMod* module);
    /// Clears and frees the model unless the caller has taken it.
    ~CToolLiteModel() override;

    int Perform(bool asynchronous) override;

    std::set<std::string> m_loaded; ///< names of the tables that arrived
    QStringList m_names;            ///< requested tables
    CLiteModel* m_model = nullptr;  ///< to keep the model, take the pointer and set this to null
};
