#pragma once

#include <functional>
#include <memory>
#include <QDialog>
#include <QProcess>

namespace Ui
{
class StoreDialog;
}

/// Asks which store to open: one of those opened before, the last first; a file; a server; or a demo store,
/// which is created for this user.
class StoreDialog : public QDialog
{
    Q_OBJECT

public:
    explicit StoreDialog(QWidget* parent = nullptr);
    ~StoreDialog() override;

    /// The address of the chosen store, after the dialog was accepted.
    QString url() const;
    /// Why the last choice could not be opened.
    void showNotice(const QString& text);
    /// Replaces the desktop's file dialog; an empty answer changes nothing.
    void setFileChooser(std::function<QString()> choose) { m_chooseFile = std::move(choose); }

    /// Remembers an address that was opened, without its password.
    static void remember(const QString& url);
    static QStringList remembered();
    /// The address for typed text: a full address, a path, or server and database. Empty for an empty text.
    static QString addressOf(const QString& typed);

private:
    void accept() override;
    void reject() override;
    void chooseFile();
    void makeDemo();
    void demoMade(int exitCode);
    void showEnabled();

    std::unique_ptr<Ui::StoreDialog> m_form;
    std::function<QString()> m_chooseFile;
    QProcess m_demo;
};
