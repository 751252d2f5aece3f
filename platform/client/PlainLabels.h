#pragma once

#include <QObject>

/// Keeps labels from guessing their format: with Qt::AutoText a label takes any text that looks like markup
/// for markup and loads the files that it names. Names, comments and file names come from other people, so
/// every such label of the process, including tool tips and message boxes, becomes plain before it is
/// measured or shown. A label with markup of the program sets Qt::RichText.
class PlainLabels : public QObject
{
    Q_OBJECT

public:
    explicit PlainLabels(QObject* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};
