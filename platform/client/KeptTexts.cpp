#include "KeptTexts.h"

#include "CVrkCliApp.h"
#include "CVrkCliMod.h"
#include "GenGuid32.h"
#include "KeptFolder.h"
#include "KeptWriter.h"

#include <algorithm>
#include <QCryptographicHash>
#include <QDateTime>
#include <QDebug>
#include <QPointer>
#include <QWidget>
#include <vector>

namespace
{
constexpr int digitsOfScope = 32;

struct Entry {
    KeptTexts::Text text;
    KeptTexts::Where where = KeptTexts::OnDisk;
    QPointer<QWidget> window;
};

bool isBelow(const QObject* object, const QObject* ancestor)
{
    while (object && object != ancestor)
        object = object->parent();
    return object != nullptr;
}
} // namespace

struct KeptTexts::Private {
    std::vector<Entry>::iterator find(const QByteArray& id)
    {
        return std::find_if(entries.begin(), entries.end(),
                            [&id](const Entry& entry) { return entry.text.id == id; });
    }
    void takeOver(const QVector<KeptFolder::File>& files, const QByteArray& scope);

    std::vector<Entry> entries; ///< the latest last
    qint64 lastTime = 0;
    std::unique_ptr<KeptWriter> writer; ///< null without a folder
};

void KeptTexts::Private::takeOver(const QVector<KeptFolder::File>& files, const QByteArray& scope)
{
    for (const KeptFolder::File& file : files) {
        Entry entry;
        if (KeptWriter::unpack(file.bytes, scope, &entry.text) && entry.text.id == file.id) {
            entry.text.isLeft = true;
            entries.push_back(entry);
            lastTime = qMax(lastTime, entry.text.time);
        } else {
            qWarning().noquote() << "kept texts: damaged file" << QString::fromLatin1(file.id);
        }
    }
    std::stable_sort(entries.begin(), entries.end(),
                     [](const Entry& one, const Entry& other) { return one.text.time < other.text.time; });
}

KeptTexts::KeptTexts(QObject* parent) : QObject(parent), d(std::make_unique<Private>()) {}

KeptTexts::~KeptTexts() = default;

KeptTexts* KeptTexts::of(QObject* object)
{
    QObject* top = object;
    for (QObject* above = object; above; above = above->parent()) {
        const auto* module = qobject_cast<CVrkCliMod*>(above);
        if (module && module->app())
            return module->app()->keptTexts();
        top = above;
    }
    auto* own = top->findChild<KeptTexts*>(QString(), Qt::FindDirectChildrenOnly);
    return own ? own : new KeptTexts(top);
}

void KeptTexts::open(const QString& folder, const QString& login, const QString& store)
{
    close();
    const QByteArray scope = login.toUtf8() + '\0' + store.toUtf8();
    const QByteArray name = QCryptographicHash::hash(scope, QCryptographicHash::Sha256).toHex();
    auto files = std::make_unique<KeptFolder>(folder + u'/' + QString::fromLatin1(name.left(digitsOfScope)));
    d->takeOver(files->takeOver(), scope);
    d->writer = std::make_unique<KeptWriter>(std::move(files), scope, [this](const QString& error) {
        QMetaObject::invokeMethod(
            this,
            [this, error] {
                if (!error.isEmpty())
                    emit failed(error);
            },
            Qt::QueuedConnection);
    });
    emit changed();
}

void KeptTexts::close()
{
    d->writer.reset();
    d->entries.clear();
    emit changed();
}

QString KeptTexts::errorText() const
{
    return d->writer ? d->writer->errorText() : QString();
}

bool KeptTexts::flush()
{
    return d->writer && d->writer->flush();
}

QByteArray KeptTexts::keep(const QString& place, const Values& values, const QByteArray& id, Where where)
{
    Entry entry;
    entry.where = where;
    const auto known = d->find(id);
    if (known == d->entries.end()) {
        entry.text.id = id.isEmpty() ? GenGuid32() : id;
    } else {
        const bool hasFile = known->where == OnDisk;
        if (known->text.place == place && known->text.values == values && (hasFile || where == InMemory))
            return id;
        entry = *known;
        entry.where = hasFile ? OnDisk : where;
        d->entries.erase(known);
    }
    entry.text.place = place;
    entry.text.values = values;
    entry.text.isLeft = false;
    d->lastTime = qMax(d->lastTime + 1, QDateTime::currentMSecsSinceEpoch());
    entry.text.time = d->lastTime;
    d->entries.push_back(entry);
    if (d->writer && entry.where == OnDisk)
        d->writer->put(entry.text);
    emit changed();
    return entry.text.id;
}

void KeptTexts::forget(const QByteArray& id)
{
    const auto known = d->find(id);
    if (known == d->entries.end())
        return;
    const bool isOnDisk = known->where == OnDisk;
    d->entries.erase(known);
    if (d->writer && isOnDisk)
        d->writer->remove(id);
    emit changed();
}

void KeptTexts::hold(const QByteArray& id, QWidget* window)
{
    const auto known = d->find(id);
    if (known == d->entries.end() || known->window == window)
        return;
    known->window = window;
    if (window)
        known->text.isLeft = false;
    emit changed();
}

void KeptTexts::putBehind(const QByteArray& id)
{
    const auto known = d->find(id);
    if (known != d->entries.end())
        std::rotate(d->entries.begin(), known, known + 1);
}

QVector<KeptTexts::Text> KeptTexts::offered(const QString& place) const
{
    QVector<Text> texts;
    for (const Entry& entry : d->entries)
        if (!entry.window && entry.text.place == place)
            texts.append(entry.text);
    return texts;
}

QVector<KeptTexts::Text> KeptTexts::left() const
{
    QVector<Text> texts;
    for (const Entry& entry : d->entries)
        if (entry.text.isLeft)
            texts.append(entry.text);
    return texts;
}

QVector<KeptTexts::Text> KeptTexts::held(const QObject* ancestor)
{
    emit settling();
    QVector<Text> texts;
    for (const Entry& entry : d->entries)
        if (entry.window && entry.window->isVisible() && isBelow(entry.window, ancestor))
            texts.append(entry.text);
    return texts;
}

void KeptTexts::dropHeld(const QObject* ancestor)
{
    for (const Text& text : held(ancestor)) {
        emit heldDropped(text.id);
        forget(text.id);
    }
}
