#pragma once

#include "TemplatesEditSourceModel.h"

/// The tree of the templates by department, under the rows of Departments. Deliberate: items cannot be
/// moved in it.
class DepsTemplatesEditSourceModel : public TemplatesEditSourceModel
{
    Q_OBJECT

public:
    explicit DepsTemplatesEditSourceModel(QObject* parent = nullptr)
        : TemplatesEditSourceModel(TemplateLevels::depsLevel, parent)
    {
    }
};
