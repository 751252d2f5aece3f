#pragma once

#include "Store.h"

#include <functional>

/// Opens a store for the window of the reference data, and asks for a password if its server requires one.
class DirectoryOpening
{
public:
    /// Asks for a password; \a text says why. A null answer means that the user gives up.
    using Ask = std::function<QString(const QString& text)>;

    explicit DirectoryOpening(Ask ask) : m_ask(std::move(ask)) {}

    /// Null with \a error on failure; null without one if the user gave up. A password stays in the environment of this
    /// process, from which the further connections of an administrator take it.
    std::unique_ptr<Store> open(const QString& url, StoreError* error) const;

private:
    Ask m_ask;
};
