#pragma once

#include "TemplatesEditSourceModel.h"

/// The tree of the templates by type of organization, under the rows of OrgTypes.
class OrgsTemplatesEditSourceModel : public TemplatesEditSourceModel
{
    Q_OBJECT

public:
    explicit OrgsTemplatesEditSourceModel(QObject* parent = nullptr)
        : TemplatesEditSourceModel(TemplateLevels::orgsLevel, parent)
    {
    }
};
