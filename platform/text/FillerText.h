#pragma once

#include "TemplateText.h"

#include <QTextBrowser>
#include <QVector>

/// How far a parameter is filled.
enum class ParameterState {
    Missing,   ///< has to be filled yet
    LeftEmpty, ///< may stay empty, and is
    Filled,
    Unknown, ///< filled with what the reference data does not know
};

/// The text of a template as it will read, parameters highlighted: what has to be filled is in italics on a warm ground
/// with a star behind the label, what may stay empty in italics, values are underlined, by a wave where the reference data
/// does not know them, the parameter in work is marked like a selection. A click on a parameter emits a signal.
class FillerText : public QTextBrowser
{
    Q_OBJECT

public:
    struct Shown {
        QString text; ///< the value, or the label of an empty parameter
        ParameterState state = ParameterState::Missing;
    };

    explicit FillerText(QWidget* parent = nullptr);

    /// The passages of the text, and for each of its parameters what it shows.
    void showText(const QVector<TemplateText::Run>& runs, const QVector<Shown>& parameters);
    void showParameter(int index, const Shown& shown);
    /// Marks the parameter in work and scrolls to it; -1 for none.
    void setCurrent(int index);
    /// Height that shows all of the text at the present width.
    int neededHeight() const;
    /// Where the parameter's shown text begins, in the viewport.
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
