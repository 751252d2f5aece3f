#include "HeadBook.h"

#include <QDir>
#include <QFile>
#include <unistd.h>

QVector<QByteArray> HeadBook::parse(const QByteArray& text)
{
    static const QByteArray begin = "vrk-logbook/";
    QVector<QByteArray> notes;
    const auto noteFrom = [&text](int from) {
        const int at = text.indexOf('\n' + begin, from);
        return at < 0 ? text.size() : at + 1;
    };
    for (int at = text.startsWith(begin) ? 0 : noteFrom(0); at < text.size();) {
        const int next = noteFrom(at);
        notes.append(text.mid(at, next - at));
        at = next;
    }
    return notes;
}

bool HeadBook::read(const QString& path, QVector<QByteArray>* notes)
{
    const QDir folder(path);
    const QStringList names =
        folder.exists() ? folder.entryList(QDir::Files, QDir::Name) : QStringList{QString()};
    for (const QString& name : names) {
        QFile file(name.isEmpty() ? path : folder.filePath(name));
        if (!file.open(QIODevice::ReadOnly))
            return false;
        *notes += parse(file.readAll());
    }
    return true;
}

QVector<QByteArray> HeadBook::notes() const
{
    QVector<QByteArray> notes;
    if (QFile::exists(m_file))
        read(m_file, &notes);
    return notes;
}

bool HeadBook::append(const QByteArray& note)
{
    const QVector<QByteArray> known = notes();
    if (!known.isEmpty() && known.constLast() == note)
        return true;
    QFile file(m_file);
    return file.open(QIODevice::WriteOnly | QIODevice::Append) && file.write(note) == note.size() &&
           file.flush() && ::fsync(file.handle()) == 0;
}
