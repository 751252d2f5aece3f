#pragma once

#include "AbstractHfnCellData.h"

#include <QObject>
#include <QPointer>
#include <QVariant>
#include <QVector>

/// Turns a field of a record into what a table shows, one object for any number of columns. Derived classes
/// override data() and call this one for the roles that they leave alone.
class VRK_EXPORT AbstractHfnCellConversion : public QObject
{
    Q_OBJECT

public:
    explicit AbstractHfnCellConversion(QObject* parent = nullptr);
    ~AbstractHfnCellConversion() override;

    /// A redirected role is answered by the other conversion. Otherwise Qt::DisplayRole gives the plain
    /// value, which for template text is the visible text, Qt::UserRole the stored value, any other role an
    /// invalid variant. Null fields and blobs give an invalid variant. Stays the first virtual operation
    /// behind those of QObject.
    virtual QVariant data(const AbstractHfnCellData& cell) const;

    /// Lets \a other answer for \a role from now on; null takes the redirection back. Not owned.
    void setRoleRedirect(int role, AbstractHfnCellConversion* other);

private:
    struct Redirect {
        int role;
        QPointer<AbstractHfnCellConversion> target;
    };
    QVector<Redirect> m_redirects;
};
