#pragma once

#include <QJSValue>
#include <QObject>

class QJSEngine;
class Store;

/// The functions that give server scripts access to the store; called by the engine. Wrong arguments end
/// the script with an error.
class ScriptHost : public QObject
{
    Q_OBJECT

public:
    ScriptHost(QJSEngine* engine, Store* store);

    Q_INVOKABLE QJSValue modelTableByName(const QString& name);
    Q_INVOKABLE QJSValue recordCount(const QJSValue& table);
    Q_INVOKABLE QJSValue seekRecord(const QJSValue& table, int key, const QJSValue& values);
    Q_INVOKABLE QJSValue record(const QJSValue& table, int key, double index);
    Q_INVOKABLE QJSValue fieldValue(const QJSValue& record, const QString& field);

private:
    /// Returns the table's name after a check; empty, with the script ended, if there is no such table or
    /// key.
    QByteArray tableName(const QJSValue& table, int key = 0);
    QJSValue rowAt(const QByteArray& table, int key, qint64 index);

    QJSEngine* m_engine;
    Store* m_store;
};
