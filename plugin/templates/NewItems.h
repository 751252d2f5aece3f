#pragma once

#include <initializer_list>
#include <QCoreApplication>
#include <QModelIndex>
#include <utility>

class CMDArray;
class PageTree;
class QTextCodec;
class TemplateEdits;
struct MDRData;
struct MDRVar;
struct TemplateLevel;
struct TemplateTables;

/// Creates items on a page of the configurator: unsaved records, whose rows become current. The indexes are
/// those of the model.
class NewItems
{
    Q_DECLARE_TR_FUNCTIONS(TemplateTab)

public:
    /// Nothing is owned.
    NewItems(const TemplateLevel& level, TemplateTables& tables, PageTree& tree, TemplateEdits& edits,
             const QTextCodec* codec);

    void newRootFolder();
    /// In the category or root row of this index, or beside the template. False if there is no such place.
    bool newFolder(QModelIndex index);
    /// In the category of this index, or beside the template. False if there is no such place.
    bool newTemplate(QModelIndex index);
    /// A copy in the current category, or beside the current template.
    void pasteTemplate(const MDRData* source);

private:
    using Values = std::initializer_list<std::pair<const char*, MDRVar>>;
    void add(int row, const QModelIndex& parent, CMDArray& rows, const Values& values);
    bool isCategory(const QModelIndex& index) const;
    bool isRoot(const QModelIndex& index) const;
    /// The key of the item at an index; empty if it is invalid.
    QByteArray keyAt(const QModelIndex& index) const;
    void addFolder(const QModelIndex& parent, const QString& name);
    void addTemplate(const QModelIndex& parent, const QByteArray& name, const MDRVar& html);

    const TemplateLevel& m_level;
    TemplateTables& m_tables;
    PageTree& m_tree;
    TemplateEdits& m_edits;
    const QTextCodec* m_codec;
};
