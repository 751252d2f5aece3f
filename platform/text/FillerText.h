#pragma once

#include "TemplateText.h"

#include <QTextBrowser>
#include <QVector>

/// The state of a parameter.
enum class ParameterState {
    Missing,   ///< must still be filled
    LeftEmpty, ///< optional and empty
    Filled,
    Unknown, ///< filled with a value that the reference data does not have
};

/// The text of a template in its final form with parameters highlighted. Parameters to be filled are in
/// italics on a warm background with a star after the label; optional ones are in italics; values are
/// underlined, with a wavy line if the reference data does not have them; the current parameter is marked
/// like a selection. A click on a parameter emits a signal.
class FillerText : public QTextBrowser
{
    Q_OBJECT

public:
    struct Shown {
        QString text; ///< the value, or the label of an empty parameter
        ParameterState state = ParameterState::Missing;
    };

    explicit FillerText(QWidget* parent = nullptr);

    /// Shows the passages of the text, and for each of its parameters its value or label.
    void showText(const QVector<TemplateText::Run>& runs, const QVector<Shown>& parameters);
    void showParameter(int index, const Shown& shown);
    /// Highlights the current parameter and scrolls to it; -1 for none.
    void setCurrent(int index);
    /// Height that shows the whole text at the current width.
    int neededHeight() const;
    /// Position of the parameter's shown text, in viewport coordinates.
    QRect parameterRect(int index) const;

signals:
    void parameterClicked(int index);

protected:
    void changeEvent(QEvent* event) override;

private:
    void rebuild();
    QTextCharFormat formatOf(ParameterState state, bool current) const;

    QVector<TemplateText::Run> m_runs;
    QVector<Shown> m_parameters;
    QVector<int> m_positions; ///< of each parameter in the document
    int m_current = -1;
};
