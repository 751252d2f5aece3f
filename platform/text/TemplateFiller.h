#pragma once

#include "VrkExport.h"

#include <memory>
#include <QVector>
#include <QWidget>

class CVrkCliMod;
struct TEventNciParse;

/// Shows a template's text with its parameters, and below it (or beside it) one editor a parameter, fit to
/// its kind. Clicking a parameter in the text leads to its editor, and the editor in use lights up in the
/// text. Tab and Enter walk the editors in the order of the text.
///
/// What the user types for a template is kept until valuesWritten() or forgetValues(); when the same template comes again
/// it shows those values and says so.
class VRK_EXPORT TemplateFiller : public QWidget
{
    Q_OBJECT

public:
    explicit TemplateFiller(QWidget* parent = nullptr);
    ~TemplateFiller() override;

    /// The module gives session and reference data, which is read at the first parameter that needs it.
    void setModule(CVrkCliMod* module);
    /// Vertical: editors below the text; horizontal: beside it.
    void setOrientation(Qt::Orientation orientation);

    enum Keeps {
        Everything,
        OthersOnly, ///< its window keeps the values on show by itself
    };
    /// Has the values kept by the application, at this place of its KeptTexts; \a caption says what they belong to.
    /// Otherwise they are kept as long as the widget lives.
    void setKept(const QString& place, const QString& caption, Keeps keeps = Everything);

    /// Replaces the text: the html of a template, or of a record whose values are to be changed. Empty: no
    /// template.
    void setTemplate(const QString& html);
    /// Indexes of all parameters with this base name, in the order of the text.
    QVector<unsigned int> findParameter(const QString& name) const;
    /// Sets a parameter's shown text and the key of the reference record behind it, "" for none. An index
    /// that no parameter has is ignored.
    void setParameterValue(unsigned int index, const QString& text, const QString& key);
    /// The html of a record: the template with shown texts and keys set, in all else unchanged. True leaves
    /// optional parameters without a value empty, with the words around them; false shows their labels. A parameter that
    /// lacks its value shows its label.
    QString filledTemplate(bool emptyOptional) const;
    /// There is a template, and each parameter that is not optional has a key or a text other than its label.
    bool isFilled() const;
    /// What keeps it from being filled, in a sentence for the user; empty when nothing does.
    QString missing() const;
    /// Gives the keyboard to the first parameter that has to be filled yet; false when there is none.
    bool focusMissing();
    /// Follows changes of the reference data.
    void MessageData(TEventNciParse* event);
    /// A record with the present values was written: they are not kept any longer, and the free texts among them are
    /// offered to parameters of the same label from now on.
    void valuesWritten();
    /// The user has dropped the present values: they are not kept any longer.
    void forgetValues();

signals:
    /// Any edit, and each new template, an empty one as well.
    void templateChanged();
    /// The user went to the parameter in the text; the editors are the widget's own, so nothing needs to be
    /// done.
    void requestEditor(const QString& parameterName, unsigned int index);

protected:
    void resizeEvent(QResizeEvent* event) override;
    /// The keyboard goes on to the first parameter that lacks its value, or to the first.
    void focusInEvent(QFocusEvent* event) override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};
