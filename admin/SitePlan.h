#pragma once

#include <QString>
#include <QStringList>
#include <QTextStream>
#include <QVector>

class Store;
struct StoreError;

/// A site as described by its administrator: one organization, its departments with timetables, posts and
/// people.
struct SitePlan {
    struct Shift {
        QString name;
        int from = 0; ///< seconds since midnight
        int to = 0;
    };
    struct Person {
        QString login;
        QString lastName;
        QString firstName;
        QString patronymic;
        QString post; ///< a post of the department; may be empty
        int safetyGroup = 0;
        QStringList rights;
        QString password; ///< empty: cannot log in yet
        QString fullName() const;
    };
    struct Department {
        QString name;
        QVector<Shift> shifts;
        QStringList posts;
        QVector<Person> people;
    };

    QString organizationType;
    QString organization;
    QVector<Department> departments;

    /// The default plan of a site: one department with its posts and timetable, without people.
    static SitePlan starter();

    /// Asks line by line: a question to \a out, its answer from \a in. An invalid answer is reported and
    /// asked again, unless \a in is a file (\a isFile), where it ends the questions with an error. An empty
    /// answer ends a list.
    bool ask(QTextStream& in, QTextStream& out, bool isFile, bool withPasswords, QString* error);

    /// Writes the plan into an empty store in one transaction, with the templates that every journal needs.
    bool write(Store* store, StoreError* error) const;
};
