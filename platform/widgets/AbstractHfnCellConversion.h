#pragma once

#include "AbstractHfnCellData.h"

#include <QObject>
#include <QPointer>
#include <QVariant>
#include <QVector>

/// Converts a field of a record into what a table shows; one object serves any number of columns. Derived
/// classes override data() and call this one for the roles that they do not handle.
class VRK_EXPORT AbstractHfnCellConversion : public QObject
{
    Q_OBJECT

public:
    explicit AbstractHfnCellConversion(QObject* parent = nullptr);
    ~AbstractHfnCellConversion() override;

    /// A redirected role is answered by the other conversion. Otherwise Qt::DisplayRole returns the plain
    /// value, which for template text is the visible text, Qt::UserRole the stored value, any other role an
    /// invalid variant. Null fields and blobs give an invalid variant. Must remain the first virtual
    /// function after those of QObject.
    virtual QVariant data(const AbstractHfnCellData& cell) const;

    /// Lets \a other answer for \a role from now on; null removes the redirection. Not owned.
    void setRoleRedirect(int role, AbstractHfnCellConversion* other);

private:
    struct Redirect {
        int role;
        QPointer<AbstractHfnCellConversion> target;
    };
    QVector<Redirect> m_redirects;
};
