#pragma once

#include "TemplatesEditSourceModel.h"

/// The tree of the common templates; its top level contains categories.
class PublicTemplatesEditSourceModel : public TemplatesEditSourceModel
{
    Q_OBJECT

public:
    explicit PublicTemplatesEditSourceModel(QObject* parent = nullptr)
        : TemplatesEditSourceModel(TemplateLevels::publicLevel, parent)
    {
    }
};
