#pragma once

#include <memory>
#include <QString>

class CLiteModel;
class CModelTable;
class CVrkCliMod;
class TemplatesWidget;
struct TEventNciParse;

/// The record dialog's own copies of the templates, their categories and the reference tables. They are
/// loaded when they are needed, and updated from change events while they are shown.
class CreatorTables
{
public:
    CreatorTables();
    ~CreatorTables();

    /// Loads the tables if they are not up to date, and hands \a tree those that it shows. If some cannot
    /// be loaded, returns false, and tables loaded earlier stay, which are better than a part of them:
    /// the next call tries again.
    bool load(CVrkCliMod* module, TemplatesWidget* tree);
    /// The tables must be loaded again the next time.
    void setStale() { m_isStale = true; }
    /// Applies an event to its table, or notes that the tables are stale if they are not \a shown.
    void apply(const TEventNciParse& event, bool shown);

    /// Null if it could not be loaded.
    CModelTable* table(const char* name) const;

private:
    std::unique_ptr<CLiteModel> m_model;
    bool m_isStale = true;
};
