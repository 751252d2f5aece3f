#pragma once

#include "VrkExport.h"

#include <QByteArray>

class CModelTable;
class CVrkCliMod;

/// Defines the standard parameters of templates: the base parameters with their groups, and the parameters
/// of equipment. It adds them to the parameter tables in memory; the rows have no flag, so they are never
/// sent to the server.
class VRK_EXPORT ParametersBase
{
public:
    /// Texts are encoded in the code page of the module's session.
    explicit ParametersBase(CVrkCliMod* module);

    /// Adds the groups to \a categories (TemplateParamCategories) and the parameters to \a parameters
    /// (TemplateParams): keys "$base.<name>", each html one parameter. Existing rows are unchanged. True
    /// also adds the parameters of equipment.
    void createBaseParameters(CModelTable* categories, CModelTable* parameters, bool withEquipment);
    /// Adds the parameters of equipment to \a table, under the group with this key, or under their own
    /// group for an empty key. A table without fields gets those of TemplateParams and the order of entry.
    void createBaseEquipmentsParameter(CModelTable* table, QByteArray categoryKey);

private:
    CVrkCliMod* m_module;
};
