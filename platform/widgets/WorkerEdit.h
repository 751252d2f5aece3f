#pragma once

#include <QByteArray>
#include <QPointer>
#include <QWidget>

class CVrkCliMod;
class QLineEdit;
class QToolButton;
class ReferenceData;
class SuggestionModel;
class SuggestionPopup;

/// A line in which a worker is chosen by typing parts of his name or department, with a button for the tree of the
/// organization. Text that names nobody is not taken: isResolved() says so.
class WorkerEdit : public QWidget
{
    Q_OBJECT

public:
    explicit WorkerEdit(QWidget* parent = nullptr);

    /// The module gives the workers on offer; deleted ones are none of them.
    void setModule(CVrkCliMod* module);
    /// Shows a worker under this name, whether he is on offer or not; an empty key empties the line.
    void setWorker(const QByteArray& key, const QString& name);
    QByteArray workerKey() const { return m_key; }
    /// False while the text names nobody.
    bool isResolved() const;

signals:
    /// The worker or the text has changed.
    void changed();
    /// The button was pressed: the owner shows the tree and answers with setWorker().
    void treeRequested();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void loadItems();
    void suggest(const QString& query);
    void take(int row);
    /// The text may name a worker in full without having been taken from the list.
    void takeTyped();

    QLineEdit* m_line;
    QToolButton* m_treeButton;
    SuggestionModel* m_model;
    SuggestionPopup* m_popup;
    QPointer<ReferenceData> m_reference;
    bool m_loaded = false;
    QByteArray m_key;
};
