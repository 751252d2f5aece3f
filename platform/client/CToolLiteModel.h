#pragma once

#include "CLiteModel.h"
#include "CVrkToolObject.h"

#include <QStringList>
#include <set>
#include <string>

/// Fetches whole reference tables into a CLiteModel, each with KeyLink as key 0; Tables has nameLat as key 1.
/// A table that cannot be had is missing from the model, the others arrive.
class VRK_EXPORT CToolLiteModel : public CVrkToolObject
{
    Q_OBJECT

public:
    explicit CToolLiteModel(CVrkCliMod* module);
    /// Clears and frees the model if the caller has not taken it out.
    ~CToolLiteModel() override;

    int Perform(bool asynchronous) override;

    std::set<std::string> m_loaded; ///< names of the tables that arrived
    QStringList m_names;            ///< tables wanted
    CLiteModel* m_model = nullptr;  ///< take it out and set this to null to keep it
};
