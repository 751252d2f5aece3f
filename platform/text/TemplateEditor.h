#pragma once

#include "VrkExport.h"

#include <memory>
#include <QStringList>
#include <QWidget>

class CModelTable;
class QTextCodec;
struct MDRData;

/// The editor of a template's text: bold and struck-out passages, parameters as solid chips, a tree of the
/// parameters on offer beside it, and below it a preview as the journal shows the template to be filled.
///
/// A text that was not touched, or that undo has brought back, comes back byte for byte. An edited one is
/// written anew from what is seen: parameters keep all their properties in their order, template properties
/// stand in front as they were. What the format cannot carry is left out with a visible notice.
class VRK_EXPORT TemplateEditor : public QWidget
{
    Q_OBJECT

public:
    explicit TemplateEditor(QWidget* parent = nullptr);
    ~TemplateEditor() override;

    /// Code page of the texts in the tables; the texts of this class are decoded.
    void setTextCodec(QTextCodec* codec);
    /// TemplateParamCategories and TemplateParams. They belong to the caller and may be refilled at any time,
    /// followed by reloadParameters(); the widget keeps copies of what it shows, never records.
    void setCatsParametersTable(CModelTable* table);
    void setParametersTable(CModelTable* table);
    /// The base names of the parameters on offer; an empty list offers all.
    void setParameterFilter(const QStringList& names);

    /// No higher than its place in a table of properties.
    QSize sizeHint() const override;

    /// False makes it read-only: the text can still be read, selected and copied.
    void setEnabled(bool enabled);
    bool isEnabled() const;

    /// Replaces the text. One that differs from the present text in its template properties only leaves the
    /// cursor and the history of undo as they are. templateChanged() does not come.
    void setTemplateText(const QString& html);
    /// Empties the editor; nothing is left to undo.
    void clearTemplateText();
    /// The present text with the template properties.
    QString templateText() const;

    /// Builds the tree of parameters anew from the tables; what is expanded and current stays.
    void reloadParameters();
    /// One row of either table has changed. Null is ignored.
    void updateParameters(MDRData* record);

signals:
    /// The user has changed the text; \a html is what templateText() gives.
    void templateChanged(const QString& html);

private:
    struct Private;
    std::unique_ptr<Private> d;
};
