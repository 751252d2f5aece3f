#pragma once

#include <QDialog>

/// "О программе": the version, the store and its engine, the licences of the libraries in use; the text can be copied
/// for a report to the administrator.
class AboutDialog : public QDialog
{
    Q_OBJECT

public:
    /// \a store is an address without a password.
    AboutDialog(const QString& store, const QString& engine, QWidget* parent);
};
