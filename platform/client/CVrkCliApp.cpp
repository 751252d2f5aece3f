#include "CVrkCliApp.h"

#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "EditorGuard.h"
#include "KeptTexts.h"
#include "PlainLabels.h"
#include "UserSettings.h"

#include <QPointer>
#include <QScopedValueRollback>

struct CVrkCliApp::Private {
    std::unique_ptr<CVrkCliSes> session;
    EditorGuard guard;
    PlainLabels labels;
    KeptTexts texts;
    UserSettings settings;
    QPointer<CVrkCliMod> sink;
    QVector<CVrkCliMod*> modules;
    std::function<bool(CVrkCliMod*)> closeGuard;
    std::function<CVrkCliMod*(const QString&)> opener;
    QVector<RecordEntry> recordEntries;
    bool delivering = false;
    bool missed = false; ///< events arrived while a module was being served
};

CVrkCliApp::CVrkCliApp(QObject* parent) : QObject(parent), d(std::make_unique<Private>())
{
    connect(&d->guard, &EditorGuard::textAdjusted, this, &CVrkCliApp::textAdjusted);
}

CVrkCliApp::~CVrkCliApp()
{
    for (CVrkCliMod* module : qAsConst(d->modules)) {
        module->m_waiting.clear();
        module->m_app = nullptr;
    }
}

void CVrkCliApp::setSession(std::unique_ptr<CVrkCliSes> session)
{
    for (CVrkCliMod* module : qAsConst(d->modules))
        module->m_waiting.clear();
    d->session = std::move(session);
    d->guard.setCodec(d->session ? d->session->codec() : nullptr);
    if (!d->session)
        return;
    // Queued, so that the session first finishes its current request.
    connect(d->session.get(), &CVrkCliSes::eventsWaiting, this, &CVrkCliApp::deliver, Qt::QueuedConnection);
    connect(d->session.get(), &CVrkCliSes::connectionChanged, this, [this](bool connected) {
        const QVector<QPointer<CVrkCliMod>> modules(d->modules.begin(), d->modules.end());
        for (const QPointer<CVrkCliMod>& module : modules) {
            if (connected && module)
                module->ModSesReconnect();
        }
    });
    d->session->startEvents();
}

CVrkCliSes* CVrkCliApp::session() const
{
    return d->session.get();
}

KeptTexts* CVrkCliApp::keptTexts() const
{
    return &d->texts;
}

UserSettings* CVrkCliApp::settings() const
{
    return &d->settings;
}

void CVrkCliApp::setLogSink(CVrkCliMod* module)
{
    d->sink = module;
}

CVrkCliMod* CVrkCliApp::logSink() const
{
    return d->sink;
}

QVector<CVrkCliMod*> CVrkCliApp::modules() const
{
    return d->modules;
}

void CVrkCliApp::addModule(CVrkCliMod* module)
{
    d->modules.append(module);
}

void CVrkCliApp::removeModule(CVrkCliMod* module)
{
    d->modules.removeOne(module);
}

void CVrkCliApp::setCloseGuard(std::function<bool(CVrkCliMod*)> guard)
{
    d->closeGuard = std::move(guard);
}

void CVrkCliApp::setModuleOpener(std::function<CVrkCliMod*(const QString&)> opener)
{
    d->opener = std::move(opener);
}

bool CVrkCliApp::notifyModule(const QString& module, const QString& name, const QVariant& value)
{
    CVrkCliMod* receiver = d->opener ? d->opener(module) : nullptr;
    if (receiver)
        receiver->slot_modNotify(name, value);
    return receiver != nullptr;
}

void CVrkCliApp::setRecordEntries(const QVector<RecordEntry>& entries)
{
    d->recordEntries = entries;
}

const QVector<CVrkCliApp::RecordEntry>& CVrkCliApp::recordEntries() const
{
    return d->recordEntries;
}

bool CVrkCliApp::mayClose(CVrkCliMod* module) const
{
    return !d->closeGuard || d->closeGuard(module);
}

bool CVrkCliApp::isDelivering() const
{
    return d->delivering;
}

int CVrkCliApp::fetchEvents()
{
    if (!d->session || d->delivering || d->session->isBusy())
        return 0;
    d->session->pollEvents();
    return deliver();
}

int CVrkCliApp::deliver()
{
    if (!d->session || d->delivering || d->session->isBusy()) {
        d->missed = true;
        return 0;
    }
    d->missed = false;
    const std::vector<HFNCliParam*> events = d->session->takeEvents();
    const QPointer<CVrkCliSes> owner = d->session.get();
    for (HFNCliParam* event : events) {
        const std::shared_ptr<HFNCliParam> shared(event, [owner](HFNCliParam* block) {
            if (owner)
                owner->PrmFree(block);
        });
        for (CVrkCliMod* module : qAsConst(d->modules))
            module->m_waiting.push_back(shared);
    }
    const QVector<QPointer<CVrkCliMod>> modules(d->modules.begin(), d->modules.end());
    for (const QPointer<CVrkCliMod>& module : modules) {
        if (module && !module->m_waiting.empty())
            module->MessageOn();
    }
    if (!events.empty())
        emit eventsDelivered();
    return static_cast<int>(events.size());
}

int CVrkCliApp::deliverTo(CVrkCliMod* module)
{
    if (d->delivering || (d->session && d->session->isBusy()))
        return 0;
    int delivered = 0;
    {
        const QScopedValueRollback<bool> delivering(d->delivering, true);
        const QPointer<CVrkCliMod> alive(module); // a message may delete its module
        while (alive && !module->m_waiting.empty()) {
            const std::shared_ptr<HFNCliParam> block = module->m_waiting.front();
            module->m_waiting.pop_front();
            module->MessageData(block.get());
            ++delivered;
        }
    }
    if (d->missed) {
        d->missed = false;
        QMetaObject::invokeMethod(
            this, [this] { deliver(); }, Qt::QueuedConnection);
    }
    return delivered;
}
