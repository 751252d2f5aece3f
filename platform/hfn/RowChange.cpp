#include "RowChange.h"

#include "Fields.h"
#include "LogbookFields.h"

#include <QHash>

namespace
{
QString tr(const char* text)
{
    return QString::fromUtf8(text);
}

bool isSet(const QVariant& value)
{
    return value.isValid() && !value.toString().isEmpty() && value.toString() != QLatin1String("0");
}

/// The word for a value that was set, replaced or removed.
QString choice(const RowChange& change, const char* field, const char* set, const char* replaced,
               const char* removed)
{
    if (!isSet(change.is(field)))
        return tr(removed);
    return tr(isSet(change.was(field)) ? replaced : set);
}

QString recordInserted(const RowChange& change)
{
    const QString kind =
        change.is(Field::status).toInt() == StatusDraft ? tr("Внесён черновик") : tr("Внесена запись");
    return isSet(change.is(Field::OriginRecordKey)) ? kind + tr(" взамен прежней") : kind;
}

QString statusChanged(const RowChange& change)
{
    switch (change.is(Field::status).toInt()) {
    case StatusApproved:
        return tr("Запись утверждена");
    case StatusDeleted:
        return tr("Запись удалена (зачёркнута)");
    default:
        return tr("Запись снова черновик");
    }
}

QStringList recordChanged(const RowChange& change)
{
    QStringList deeds;
    if (change.differs(Field::status))
        deeds << statusChanged(change);
    if (change.differs(Field::VisaWorkerKey))
        deeds << choice(change, Field::VisaWorkerKey, "Поставлена виза", "Виза заменена", "Виза снята");
    if (change.differs(Field::SecondMarkWorkerKey) || change.differs(Field::secondMarkTime))
        deeds << choice(change, Field::secondMarkTime, "Поставлен второй маркер", "Второй маркер изменён",
                        "Второй маркер снят");
    if (change.differs(Field::executionTime))
        deeds << choice(change, Field::executionTime, "Указано время выполнения", "Время выполнения изменено",
                        "Время выполнения снято");
    if (change.differs(Field::html))
        deeds << tr("Изменён текст");
    return deeds;
}

QStringList commentChanged(const RowChange& change)
{
    QStringList deeds;
    if (change.differs(Field::text_))
        deeds << tr("Комментарий изменён");
    if (change.differs(Field::readedTime))
        deeds << choice(change, Field::readedTime, "Комментарий прочитан", "Комментарий прочитан ещё раз",
                        "Комментарий снова не прочитан");
    return deeds;
}

QStringList workshiftChanged(const RowChange& change)
{
    QStringList deeds;
    if (change.differs(Field::CloseWorkerKey))
        deeds << choice(change, Field::CloseWorkerKey, "Смена закрыта", "Закрывший смену изменён",
                        "Смена снова открыта");
    if (change.differs(Field::startTime))
        deeds << tr("Исправлено начало смены");
    if (change.differs(Field::endTime))
        deeds << tr("Исправлен конец смены");
    return deeds;
}

/// How an event of a table is called where nothing more is known about the row.
struct Words {
    const char* inserted;
    const char* changed;
    const char* removed;
};

Words wordsOf(const QByteArray& table)
{
    static const QHash<QByteArray, Words> all{
        {"LogbookRecords", {"Внесена запись", "Запись изменена", "Черновик удалён"}},
        {"LogbookComments", {"Добавлен комментарий", "Комментарий изменён", "Комментарий удалён"}},
        {"LogbookFiles", {"Приложен файл", "Файл изменён", "Файл убран"}},
        {"LogbookWorkshifts", {"Смена открыта", "Смена изменена", "Открытие смены отменено"}},
        {"LogbookWorkersWorkshift",
         {"Добавлен в состав смены", "Состав смены изменён", "Убран из состава смены"}},
        {"LogbookTemplates", {"Шаблон создан", "Шаблон изменён", "Шаблон удалён"}},
        {"LogbookCatsTemplate", {"Категория создана", "Категория изменена", "Категория удалена"}},
        {"Users", {"Имя для входа заведено", "Имя для входа изменено", "Имя для входа удалено"}},
        {"UserRights", {"Право выдано", "Право изменено", "Право отозвано"}},
        {"Workers", {"Сотрудник заведён", "Сотрудник изменён", "Сотрудник удалён"}},
    };
    return all.value(table, {"Строка внесена", "Строка изменена", "Строка удалена"});
}
} // namespace

QString RowChange::Signature::lack() const
{
    switch (state) {
    case ByAdministrator:
        return tr("без подписи: загрузка или исправление администратора");
    case BeforeFirst:
        return tr("без подписи: тогда их ещё не вели");
    case Missing:
        return tr("ПОДПИСИ НЕТ или она не подходит");
    default:
        return QString();
    }
}

QVector<int> RowChange::differences() const
{
    QVector<int> places;
    for (int i = 0; i < fields.size(); ++i)
        if (!isSame(before.value(i), after.value(i)))
            places.append(i);
    return places;
}

QString RowChange::deed() const
{
    QStringList deeds;
    if (event == Inserted && table == "LogbookRecords")
        deeds << recordInserted(*this);
    else if (event == Inserted && table == "LogbookWorkersWorkshift" && !is(Field::opening).toBool())
        deeds << tr("Принимает смену");
    else if (event == Changed && table == "LogbookRecords")
        deeds = recordChanged(*this);
    else if (event == Changed && table == "LogbookComments")
        deeds = commentChanged(*this);
    else if (event == Changed && table == "LogbookWorkshifts")
        deeds = workshiftChanged(*this);
    else if (event == Removed && table == "LogbookRecords" && was(Field::status).toInt() != StatusDraft)
        deeds << tr("Запись стёрта");
    const Words words = wordsOf(table);
    if (event == Changed && differences().isEmpty())
        deeds = QStringList{tr("Записано без изменений")};
    else if (deeds.isEmpty())
        deeds << tr(event == Inserted ? words.inserted : event == Removed ? words.removed : words.changed);
    if (!reason.isEmpty())
        deeds << tr("причина: ") + reason;
    return deeds.join(QStringLiteral("; "));
}

QString RowChange::title(const QByteArray& field)
{
    static const QHash<QByteArray, const char*> titles{
        {Field::html.name, "Текст"},
        {Field::status.name, "Состояние"},
        {Field::WorkerKey.name, "Автор"},
        {Field::VisaWorkerKey.name, "Виза"},
        {Field::ReceiverWorkerKey.name, "Кому"},
        {Field::OriginRecordKey.name, "Взамен записи"},
        {Field::SecondMarkWorkerKey.name, "Второй маркер поставил"},
        {Field::recordTime.name, "Время записи"},
        {Field::eventTime.name, "Время события"},
        {Field::firstMarkTime.name, "Время первого маркера"},
        {Field::secondMarkTime.name, "Время второго маркера"},
        {Field::executionTime.name, "Время выполнения"},
        {Field::direction.name, "Направление"},
        {Field::ShiftKey.name, "Смена"},
        {Field::RecordKey.name, "Запись"},
        {Field::text_.name, "Текст"},
        {Field::commentTime.name, "Время комментария"},
        {Field::readedTime.name, "Прочитан"},
        {Field::fileName.name, "Имя файла"},
        {Field::fileData.name, "Содержимое"},
        {Field::DepartmentKey.name, "Подразделение"},
        {Field::OpenWorkerKey.name, "Открыл смену"},
        {Field::CloseWorkerKey.name, "Закрыл смену"},
        {Field::createdAt.name, "Создана"},
        {Field::startTime.name, "Начало"},
        {Field::endTime.name, "Конец"},
        {Field::WorkshiftKey.name, "Смена"},
        {Field::opening.name, "С начала смены"},
        {Field::nameLoc.name, "Название"},
        {Field::name_.name, "Название"},
        {Field::CategoryKey.name, "Категория"},
        {Field::ParentKey.name, "Входит в"},
        {Field::login.name, "Имя для входа"},
        {Field::deleted_.name, "Удалён"},
        {Field::UserKey.name, "Пользователь"},
        {Field::rightName.name, "Право"},
        {Field::KeyLink.name, "Код"},
    };
    const char* title = titles.value(field, nullptr);
    return title ? tr(title) : QString::fromLatin1(field);
}
