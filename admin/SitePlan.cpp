#include "SitePlan.h"

#include "DemoTemplates.h"
#include "DemoWriter.h"
#include "GenGuid32.h"
#include "HiddenInput.h"
#include "Sheet.h"
#include "StoreAdmin.h"

#include <functional>
#include <QMap>
#include <QSet>
#include <QTextCodec>
#include <QTime>

namespace
{
constexpr int shortestPassword = 8;

/// Asks the questions of a plan.
class Questions
{
public:
    Questions(QTextStream& in, QTextStream& out, bool isFile) : m_in(in), m_out(out), m_isFile(isFile) {}

    QString error() const { return m_error; }

    /// Asks for one answer that \a take accepts; for others \a take returns the error. Stored texts must be
    /// in the journal's code page. False if the input ends.
    bool ask(const QString& question, const std::function<QString(const QString&)>& take, bool isKept = true)
    {
        while (m_error.isEmpty()) {
            m_out << question << QStringLiteral(": ");
            m_out.flush();
            QString line = isKept ? m_in.readLine() : hiddenLine();
            ++m_line;
            while (m_isFile && line.startsWith(QLatin1Char('#'))) {
                line = m_in.readLine();
                ++m_line;
            }
            if (m_isFile &&
                (line.startsWith(QLatin1String("\\#")) || line.startsWith(QLatin1String("\\\\#"))))
                line.remove(0, 1); // an answer, especially a password, may begin with the comment character
            if (line.isNull()) {
                m_error = QStringLiteral("Ответы закончились на вопросе «%1».").arg(question);
                break;
            }
            const QString wrong =
                isKept && !QTextCodec::codecForName("Windows-1251")->canEncode(line)
                    ? QStringLiteral("В ответе есть знак, которого журнал записать не может.")
                    : take(line.trimmed());
            if (m_isFile)
                m_out << QLatin1Char('\n');
            if (wrong.isEmpty())
                return true;
            m_out << wrong << QLatin1Char('\n');
            if (m_isFile)
                m_error = QStringLiteral("Строка %1: %2").arg(m_line).arg(wrong);
        }
        return false;
    }
    /// Reads answers until an empty one.
    bool askAll(const QString& question, const std::function<QString(const QString&)>& take)
    {
        bool isMore = true;
        const auto one = [&](const QString& answer) {
            isMore = !answer.isEmpty();
            return isMore ? take(answer) : QString();
        };
        while (isMore) {
            if (!ask(question, one))
                return false;
        }
        return true;
    }

private:
    QString hiddenLine()
    {
        const HiddenInput hidden;
        return m_in.readLine();
    }

    QTextStream& m_in;
    QTextStream& m_out;
    bool m_isFile;
    int m_line = 0;
    QString m_error;
};

QString required(const QString& answer, QString* value)
{
    *value = answer;
    return answer.isEmpty() ? QStringLiteral("Ответ нужен.") : QString();
}

QString takeShift(const QString& answer, QVector<SitePlan::Shift>* shifts)
{
    const QString times = answer.section(QLatin1Char(' '), -1);
    const QTime from = QTime::fromString(times.section(QLatin1Char('-'), 0, 0), QStringLiteral("hh:mm"));
    const QTime to = QTime::fromString(times.section(QLatin1Char('-'), 1), QStringLiteral("hh:mm"));
    const QString name = answer.section(QLatin1Char(' '), 0, -2).trimmed();
    if (name.isEmpty() || !from.isValid() || !to.isValid())
        return QStringLiteral("Нужны название и время, например: Дневная 08:00-20:00");
    shifts->append({name, from.msecsSinceStartOfDay() / 1000, to.msecsSinceStartOfDay() / 1000});
    return QString();
}

QString takePerson(const QString& answer, const QStringList& posts, SitePlan::Person* person)
{
    const QStringList parts = answer.split(QLatin1Char(';'));
    const QStringList names = parts.value(1).simplified().split(QLatin1Char(' '));
    person->login = parts.value(0).trimmed();
    person->lastName = names.value(0);
    person->firstName = names.value(1);
    person->patronymic = names.mid(2).join(QLatin1Char(' '));
    person->post = parts.value(2).trimmed();
    person->safetyGroup = parts.value(3).trimmed().toInt();
    person->rights = parts.value(4).simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (person->login.isEmpty() || person->lastName.isEmpty())
        return QStringLiteral(
            "Нужны имя для входа и фамилия, например: ivanov; Иванов Иван Иванович; Диспетчер; 5");
    if (const StoreError error = StoreAdmin::loginError(person->login))
        return error.text;
    if (!person->post.isEmpty() && !posts.contains(person->post))
        return QStringLiteral("В подразделении нет должности «%1».").arg(person->post);
    if (person->safetyGroup < 0 || person->safetyGroup > 5)
        return QStringLiteral("Группа по электробезопасности: от 1 до 5, 0 если её нет.");
    for (const QString& right : qAsConst(person->rights)) {
        if (!Sheets::rights().contains(right))
            return QStringLiteral("Нет права «%1»; есть %2.")
                .arg(right, Sheets::rights().join(QStringLiteral(", ")));
    }
    return QString();
}
} // namespace

QString SitePlan::Person::fullName() const
{
    return QStringLiteral("%1 %2 %3").arg(lastName, firstName, patronymic).simplified();
}

bool SitePlan::ask(QTextStream& in, QTextStream& out, bool isFile, bool withPasswords, QString* error)
{
    Questions questions(in, out, isFile);
    const auto askDepartment = [&](Department* department) {
        const QString where = QStringLiteral(" (%1)").arg(department->name);
        const bool isTold = questions.askAll(QStringLiteral("Смена") + where, [&](const QString& one) {
            return takeShift(one, &department->shifts);
        }) && questions.askAll(QStringLiteral("Должность") + where, [&](const QString& one) {
            department->posts.append(one);
            return QString();
        });
        if (!isTold)
            return false;
        bool isMore = true;
        while (isMore) {
            Person person;
            if (!questions.ask(QStringLiteral("Сотрудник") + where, [&](const QString& one) {
                    isMore = !one.isEmpty();
                    return isMore ? takePerson(one, department->posts, &person) : QString();
                }))
                return false;
            if (isMore && withPasswords &&
                !questions.ask(
                    QStringLiteral("Пароль для %1").arg(person.login),
                    [&](const QString& one) {
                        person.password = one;
                        return one.size() < shortestPassword
                                   ? QStringLiteral("Пароль не короче %1 знаков.").arg(shortestPassword)
                                   : QString();
                    },
                    false))
                return false;
            if (isMore)
                department->people.append(person);
        }
        return true;
    };

    bool isDone = questions.ask(QStringLiteral("Тип организации"), [&](const QString& one) {
        return required(one, &organizationType);
    }) && questions.ask(QStringLiteral("Организация"), [&](const QString& one) {
        return required(one, &organization);
    });
    while (isDone) {
        Department department;
        isDone = questions.ask(QStringLiteral("Подразделение"), [&](const QString& one) {
            department.name = one;
            return one.isEmpty() && departments.isEmpty()
                       ? QStringLiteral("Нужно хотя бы одно подразделение.")
                       : QString();
        });
        if (!isDone || department.name.isEmpty())
            break;
        isDone = askDepartment(&department);
        departments.append(department);
    }
    *error = questions.error();
    return isDone;
}

SitePlan SitePlan::starter()
{
    SitePlan plan;
    plan.organizationType = QStringLiteral("Диспетчерский центр");
    plan.organization = QStringLiteral("Наша организация");
    Department department;
    department.name = QStringLiteral("Диспетчерская служба");
    department.posts = QStringList{QStringLiteral("Старший диспетчер"), QStringLiteral("Диспетчер")};
    takeShift(QStringLiteral("Дневная смена 08:00-20:00"), &department.shifts);
    takeShift(QStringLiteral("Ночная смена 20:00-08:00"), &department.shifts);
    plan.departments.append(department);
    return plan;
}

bool SitePlan::write(Store* store, StoreError* error) const
{
    DemoWriter writer(store);
    const auto made = [&](const char* table, const DemoWriter::Fields& fields) {
        const QByteArray key = GenGuid32();
        writer.insert(table, key, fields);
        return QString::fromLatin1(key);
    };
    const QString type = made("OrgTypes", {{"name_", organizationType}});
    const QString owner = made("Organizations", {{"OrgTypeKey", type}, {"name_", organization}});
    QMap<QString, QString> users;
    QSet<QPair<QString, QString>> given; ///< rights by login
    for (const Department& department : departments) {
        const QString place = made("Departments", {{"OrganizationKey", owner}, {"name_", department.name}});
        for (const Shift& shift : department.shifts)
            made("Shifts", {{"DepartmentKey", place},
                            {"name_", shift.name},
                            {"startTime", shift.from},
                            {"endTime", shift.to}});
        QMap<QString, QString> posts;
        for (const QString& post : department.posts)
            posts.insert(post, made("Roles", {{"DepartmentKey", place}, {"name_", post}}));
        for (const Person& person : department.people) {
            // A person may work in several departments with one login.
            if (!users.contains(person.login))
                users.insert(person.login,
                             made("Users", {{"login", person.login}, {"name_", person.fullName()}}));
            const QString worker = made("Workers", {{"UserKey", users.value(person.login)},
                                                    {"DepartmentKey", place},
                                                    {"firstName", person.firstName},
                                                    {"lastName", person.lastName},
                                                    {"patronymicName", person.patronymic},
                                                    {"safetyGroup", person.safetyGroup}});
            if (posts.contains(person.post))
                made("WorkerRoles", {{"RoleKey", posts.value(person.post)}, {"WorkerKey", worker}});
            for (const QString& right : person.rights) {
                if (!given.contains({person.login, right}))
                    made("UserRights", {{"UserKey", users.value(person.login)}, {"rightName", right}});
                given.insert({person.login, right});
            }
        }
    }
    // Without templates for taking over and handing over no shift can be opened.
    QMap<QString, QString> categories; ///< keys by path
    for (const DemoTemplate& one : DemoTemplates::builtIn()) {
        if (one.level != DemoTemplate::Common)
            continue;
        QString path;
        QVariant above;
        for (const QString& name : one.categories) {
            path += QLatin1Char('/') + name;
            if (!categories.contains(path))
                categories.insert(path,
                                  made("LogbookCatsTemplate", {{"ParentKey", above}, {"nameLoc", name}}));
            above = categories.value(path);
        }
        made("LogbookTemplates",
             {{"CategoryKey", above}, {"nameLoc", one.name}, {"html", QString::fromStdString(one.html)}});
    }
    return writer.write(error);
}
