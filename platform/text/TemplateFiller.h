#pragma once

#include "VrkExport.h"

#include <memory>
#include <QVector>
#include <QWidget>

class CVrkCliMod;
struct TEventNciParse;

/// Shows a template's text with its parameters, and below it (or next to it) one editor for each parameter,
/// suited to its kind. A click on a parameter in the text activates its editor, and the active editor's
/// parameter is highlighted in the text. Tab and Enter follow the order of the text.
///
/// The values typed for a template are kept until valuesWritten() or forgetValues(); if the same template
/// is shown again, it has those values, with a notice.
class VRK_EXPORT TemplateFiller : public QWidget
{
    Q_OBJECT

public:
    explicit TemplateFiller(QWidget* parent = nullptr);
    ~TemplateFiller() override;

    /// Provides session and reference data, which is read when the first parameter needs it.
    void setModule(CVrkCliMod* module);
    /// Vertical: editors below the text; horizontal: next to it.
    void setOrientation(Qt::Orientation orientation);

    enum Keeps {
        Everything,
        OthersOnly, ///< its window keeps the shown values itself
    };
    /// Keeps the values in the application's KeptTexts under this place; \a caption describes their owner.
    /// Without this call they are kept as long as the widget exists.
    void setKept(const QString& place, const QString& caption, Keeps keeps = Everything);

    /// Sets the text: the html of a template, or of a record whose values will be changed. Empty: no
    /// template.
    void setTemplate(const QString& html);
    /// Indexes of all parameters with this base name, in the order of the text.
    QVector<unsigned int> findParameter(const QString& name) const;
    /// Sets a parameter's shown text and the key of the reference record behind it, "" for none. An index
    /// without a parameter is ignored.
    void setParameterValue(unsigned int index, const QString& text, const QString& key);
    /// The html of a record: the template with shown texts and keys filled in, otherwise unchanged. True
    /// leaves optional parameters without a value empty, with the words around them removed; false shows
    /// their labels. A required parameter without a value shows its label.
    QString filledTemplate(bool emptyOptional) const;
    /// There is a template, and each required parameter has a key or a text other than its label.
    bool isFilled() const;
    /// Why it is not filled, in a sentence for the user; empty if it is.
    QString missing() const;
    /// Moves the focus to the first parameter that must still be filled; false if there is none.
    bool focusMissing();
    /// Applies changes of the reference data.
    void MessageData(TEventNciParse* event);
    /// A record with the current values was written: they are no longer kept, and the free texts among them
    /// are from now on suggested for parameters with the same label.
    void valuesWritten();
    /// The user has dropped the current values: they are no longer kept.
    void forgetValues();

signals:
    /// Emitted at every edit, and when a template is set, including an empty one.
    void templateChanged();
    /// The user has activated the parameter in the text. The widget opens its own editor; receivers need
    /// not do anything.
    void requestEditor(const QString& parameterName, unsigned int index);

protected:
    void resizeEvent(QResizeEvent* event) override;
    /// Moves the focus to the first required parameter without a value, or to the first parameter.
    void focusInEvent(QFocusEvent* event) override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};
