#pragma once

#include <QObject>
#include <QStringList>

class CModelTable;
class QCheckBox;
class QComboBox;
class QLineEdit;
class QTextCodec;
class TemplateEditor;
class TemplateEdits;
struct MDRData;
struct TemplateTables;
namespace Ui
{
class TemplateTab;
}

/// The passport of a page of the configurator: the properties of the selected category or template, with
/// their editors. A change goes at once into the edit record of the current item.
class TemplatePassport : public QObject
{
    Q_OBJECT

public:
    /// Nothing is owned.
    struct Source {
        Ui::TemplateTab* form;
        QTextCodec* codec;
        TemplateTables& tables;
        CModelTable* catsParameterTable;
        CModelTable* parametersTable;
        QStringList parameterFilter;
        QString categoryLabel; ///< of the name of a category
        QString templateLabel; ///< of the name of a template
        bool canEdit;
        TemplateEdits& edits;
    };
    TemplatePassport(const Source& source, QObject* parent);

    /// Shows a category or a template of the tables; anything else shows an empty page.
    void raiseUpPassport(MDRData* record);
    QLineEdit* categoryNameEditor() const;
    QLineEdit* templateNameEditor() const;
    TemplateEditor* templateHtmlEditor() const;

signals:
    /// The user has changed the name of an edit record.
    void renamed(MDRData* record);

private:
    void createCategoryPassport();
    void createTemplatePassport();
    void reloadTemplatePassport(const MDRData* record);
    void updateTemplateCommand();
    void updateTemplateHtml();
    QCheckBox* templateOpenEditor() const;
    QCheckBox* templateCloseEditor() const;
    QCheckBox* templateTimeEditor() const;
    QComboBox* templateFirstMarkEditor() const;
    QComboBox* templateSecondMarkEditor() const;
    QLineEdit* templateCommandEditor() const;

    // TemplatePassport_changes.cpp
    void categoryNameChanged();
    void templateNameChanged();
    void templateOpenChanged();
    void templateCloseChanged();
    void templateTimeChanged();
    void templateFirstMarkChanged();
    void templateSecondMarkChanged();
    void templateCommandChanged();
    void templateHtmlChanged();
    void nameChanged(CModelTable* edits, MDRData* record, const QString& name);
    void flagChanged(const QCheckBox* box, const char* property, const char* signature);
    /// Changes the text of the edited template with \a change, which gets its parsed html.
    template <typename Change>
    void propertyChanged(const char* signature, bool emptyIsNull, Change change);

    Source m_source;
    QByteArray m_shownTemplate; ///< its key
};
