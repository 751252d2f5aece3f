#include "CVrkToolCalcExec.h"

#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "ScriptHost.h"
#include "Store.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <QDebug>
#include <QJSEngine>
#include <QPointer>
#include <thread>

namespace
{
/// Defines the names that scripts use and runs a script: `_run(script, arguments)` returns an empty text
/// after a complete run and the error otherwise. `exit` is a property of the global object that throws when
/// it is read.
const char* const language = R"js(
var var_Nil = 0, var_Int = 1, var_Dbl = 2, var_Str = 3, var_Arr = 4;
var Result;
function type(x) {
    if (typeof x === "number") return var_Dbl;
    if (typeof x === "boolean") return var_Int;
    if (typeof x === "string") return var_Str;
    return Array.isArray(x) ? var_Arr : var_Nil;
}
function _ModelTableByName(name) { return _host.modelTableByName(name); }
function CTblRecCount(table) { return _host.recordCount(table); }
function CTblRecSeek(table, key, values) { return _host.seekRecord(table, key, values); }
function CTblRec(table, key, index) { return _host.record(table, key, index); }
function CRecFldGet(record, field) { return _host.fieldValue(record, field); }
var _run = (function (global) {
    var leave = {};
    Object.defineProperty(global, "exit", { get: function () { throw leave; } });
    return function (script, values) {
        try {
            script.apply(null, values);
        } catch (error) {
            if (error !== leave)
                return "script error: " + error + (error && error.lineNumber ? " (line " + error.lineNumber + ")" : "");
}
return "";
}
;
})(this);
)js";

QJSValue toScript(QJSEngine* engine, const CVar& var)
{
    switch (var.type) {
    case CVar::Int:
    case CVar::Double:
        return QJSValue(var.number);
    case CVar::String:
        return QJSValue(QString::fromUtf8(var.text));
    case CVar::Array: {
        QJSValue array = engine->newArray(static_cast<uint>(var.elements.size()));
        for (std::size_t i = 0; i < var.elements.size(); ++i)
            array.setProperty(static_cast<quint32>(i), toScript(engine, var.elements[i]));
        return array;
    }
    default:
        return QJSValue(QJSValue::NullValue);
    }
}

constexpr quint32 longestArray = 1000000;
constexpr int deepestArray = 100; // guards against an array that contains itself

/// A result that is too large ends the run, like a run that takes too long.
CVar fromScript(QJSEngine* engine, const QJSValue& value, int depth = 0)
{
    CVar var;
    if (value.isNumber() || value.isBool()) {
        var.type = value.isBool() ? CVar::Int : CVar::Double;
        var.number = value.toNumber();
    } else if (value.isString()) {
        var.type = CVar::String;
        var.text = value.toString().toUtf8();
    } else if (value.isArray()) {
        var.type = CVar::Array;
        const quint32 length = value.property(QStringLiteral("length")).toUInt();
        if (length > longestArray || depth > deepestArray)
            engine->setInterrupted(true);
        for (quint32 i = 0; i < length && !engine->isInterrupted(); ++i)
            var.elements.push_back(fromScript(engine, value.property(i), depth + 1));
    }
    return var;
}

/// One consistent read of the store; ends with its scope.
class ConsistentRead
{
public:
    explicit ConsistentRead(Store* store) : m_store(store), m_begun(store->beginRead(&m_error)) {}
    ~ConsistentRead()
    {
        if (m_begun)
            m_store->endRead();
    }
    ConsistentRead(const ConsistentRead&) = delete;
    ConsistentRead& operator=(const ConsistentRead&) = delete;
    bool begun() const { return m_begun; }
    const StoreError& error() const { return m_error; }

private:
    Store* m_store;
    StoreError m_error;
    bool m_begun;
};

/// Interrupts an engine that is still busy after a time. The window waits for the script, which might never
/// end.
class ScriptDeadline
{
public:
    ScriptDeadline(QJSEngine* engine, int milliseconds)
        : m_thread([this, engine, milliseconds] {
              std::unique_lock<std::mutex> lock(m_mutex);
              if (!m_ended.wait_for(lock, std::chrono::milliseconds(milliseconds),
                                    [this] { return m_isOver; }))
                  engine->setInterrupted(true);
          })
    {
    }
    ~ScriptDeadline()
    {
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_isOver = true;
        }
        m_ended.notify_one();
        m_thread.join();
    }
    ScriptDeadline(const ScriptDeadline&) = delete;
    ScriptDeadline& operator=(const ScriptDeadline&) = delete;

private:
    std::mutex m_mutex;
    std::condition_variable m_ended;
    bool m_isOver = false;
    std::thread m_thread; // declared last because it uses the members above
};
} // namespace

CVrkToolCalcExec::CVrkToolCalcExec(CVrkCliMod* module) : CVrkToolObject(module)
{
    setObjectName(QStringLiteral("CalcExec"));
    CVarInit(&m_input, 1);
    CVarInit(&m_output, 1);
}

CVrkToolCalcExec::~CVrkToolCalcExec()
{
    CVarClear(&m_input, 1);
    CVarClear(&m_output, 1);
}

int CVrkToolCalcExec::Perform(bool)
{
    CVarClear(&m_output, 1);
    CVrkCliSes* session = m_module ? m_module->session() : nullptr;
    if (!session || !session->isConnected())
        return Failed;

    const ConsistentRead read(session->store());
    if (!read.begun()) {
        qWarning().noquote() << Q_FUNC_INFO << read.error().text << read.error().detail;
        return Failed;
    }
    QJSEngine engine;
    engine.globalObject().setProperty(QStringLiteral("_host"),
                                      engine.newQObject(new ScriptHost(&engine, session->store())));
    engine.evaluate(QString::fromLatin1(language));
    const ScriptDeadline deadline(&engine, m_deadlineMs);

    // The line break keeps a comment at the end of the script from hiding the bracket.
    const QJSValue script = engine.evaluate(QStringLiteral("(function ") + m_script + QStringLiteral("\n)"));
    QString error = script.toString();
    if (script.isCallable()) {
        QJSValue run = engine.globalObject().property(QStringLiteral("_run"));
        error = run.call({script, toScript(&engine, m_input)}).toString();
    }
    if (!error.isEmpty()) {
        qWarning().noquote() << Q_FUNC_INFO << error;
        return Failed;
    }
    m_output = fromScript(&engine, engine.globalObject().property(QStringLiteral("Result")));
    if (!engine.isInterrupted())
        return Done;
    qWarning().noquote() << Q_FUNC_INFO << "the result is too large or takes too long";
    CVarClear(&m_output, 1);
    return Failed;
}
