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

/// A line for choosing a worker by typing parts of his name or department, with a button for the tree of
/// the organization. Text that names nobody is not accepted: isResolved() is then false.
class WorkerEdit : public QWidget
{
    Q_OBJECT

public:
    explicit WorkerEdit(QWidget* parent = nullptr);

    /// Sets the module that provides the available workers; deleted ones are excluded.
    void setModule(CVrkCliMod* module);
    /// Shows a worker with this name, even if he is not available for choice; an empty key clears the line.
    void setWorker(const QByteArray& key, const QString& name);
    QByteArray workerKey() const { return m_key; }
    /// False if the text names nobody.
    bool isResolved() const;

signals:
    /// The worker or the text has changed.
    void changed();
    /// The button was pressed: the owner shows the tree and calls setWorker().
    void treeRequested();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void loadItems();
    void suggest(const QString& query);
    void take(int row);
    /// Accepts a text that names a worker in full without a choice from the list.
    void takeTyped();

    QLineEdit* m_line;
    QToolButton* m_treeButton;
    SuggestionModel* m_model;
    SuggestionPopup* m_popup;
    QPointer<ReferenceData> m_reference;
    bool m_loaded = false;
    QByteArray m_key;
};
