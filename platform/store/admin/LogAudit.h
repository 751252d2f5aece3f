#pragma once

#include "EvidenceLog.h"
#include "LogHead.h"
#include "StoreAdmin.h"

/// Compares the change log with its tree, with the heads in the store and with heads from elsewhere, and its
/// signatures with what they sign.
namespace LogAudit
{
/// A head that the log must contain.
struct Claim {
    QByteArray epoch; ///< empty if unknown, as on paper
    qint64 size = 0;
    QByteArray root;        ///< its first bytes, at least 8
    QString source;         ///< where it comes from, for the user
    bool isSigned = true;   ///< by a key that the store names; without, only a head of a former epoch counts
    bool isOutside = false; ///< not kept in the store
};
/// The text as it stands on paper; an invalid text gives a claim without a root.
Claim fromPaper(const QString& text);

/// The heads among the notes, as claims; notes that are none, or with a wrong signature of one of the keys, become
/// findings. \a source is empty for the notes of the store itself.
QVector<Claim> claims(const QVector<QByteArray>& notes, const QVector<VerifierKey>& keys,
                      const QString& source, QVector<StoreAdmin::Finding>* findings);

/// Reads the whole log once and compares. False if the log cannot be read.
bool run(EvidenceLog& log, const QVector<Claim>& claims, QVector<StoreAdmin::Finding>* findings);
} // namespace LogAudit
