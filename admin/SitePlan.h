#pragma once

#include <QString>
#include <QStringList>
#include <QTextStream>
#include <QVector>

class Store;
struct StoreError;

/// A site as its administrator tells it: one organization, its departments with timetables, posts and people.
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
        QString post; ///< one of the department's; may be empty
        int safetyGroup = 0;
        QStringList rights;
        QString password; ///< empty: may not get in yet
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

    /// What a site begins with that has told nothing yet: one department with its posts and timetable, nobody in it.
    static SitePlan starter();

    /// Asks line by line: a question to \a out, its answer from \a in. A wrong answer is told and asked for again,
    /// unless \a in is a file (\a isFile), where it ends the questions with an error. An empty answer ends a list.
    bool ask(QTextStream& in, QTextStream& out, bool isFile, bool withPasswords, QString* error);

    /// Writes everything into an empty store in one transaction, with the templates that every journal needs.
    bool write(Store* store, StoreError* error) const;
};
