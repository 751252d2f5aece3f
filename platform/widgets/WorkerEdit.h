#pragma once

#include <QByteArray>
#include <QWidget>

class CModelTable;
class QLineEdit;
class QStandardItemModel;
class QTextCodec;
class QToolButton;
class WorkerFilter;

/// A line in which a worker is chosen by typing parts of his name or department, with a button for the tree of the
/// organization. Enter takes the first of the names offered.
class WorkerEdit : public QWidget
{
    Q_OBJECT

public:
    explicit WorkerEdit(QWidget* parent = nullptr);

    /// Offers the workers who are not deleted. The tables belong to the caller; the names are copied.
    void setWorkers(const QTextCodec* codec, CModelTable* workers, CModelTable* departments);
    /// Shows this worker, a deleted one included; an empty key empties the line.
    void setWorkerKey(const QByteArray& key);
    QByteArray workerKey() const { return m_key; }
    /// False while the text names nobody.
    bool isResolved() const;
    void setReadOnly(bool readOnly);

signals:
    /// The worker or the text has changed.
    void changed();
    /// The button was pressed: the owner shows the tree and answers with setWorkerKey().
    void treeRequested();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QString shownName(const QByteArray& key) const;
    void offer(const QString& text);
    /// Takes the worker that the text leads to: the first one offered, or, \a onlyOne, the only one.
    void resolve(bool onlyOne);
    void setKey(const QByteArray& key);

    QLineEdit* m_line;
    QToolButton* m_treeButton;
    QStandardItemModel* m_names;
    WorkerFilter* m_filter;
    QByteArray m_key;
};
