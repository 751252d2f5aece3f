#pragma once

#include "TemplatesEditSourceModel.h"

/// The tree of the templates by department, under the rows of Departments. Items cannot be moved in it, which is meant.
class DepsTemplatesEditSourceModel : public TemplatesEditSourceModel
{
    Q_OBJECT

public:
    explicit DepsTemplatesEditSourceModel(QObject* parent = nullptr)
        : TemplatesEditSourceModel(TemplateLevels::depsLevel, parent)
    {
    }
};
