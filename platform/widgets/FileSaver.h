#pragma once

#include "NoticeBar.h"
#include "VrkExport.h"

#include <functional>

class QUrl;

/// Saves what a window shows as a file: proposes a folder and a name, asks before it replaces a file, says what became
/// of it, and offers to open the file or its folder. It is the line in which it says so; the window only gives it a
/// place. A file is complete or not there: one that could not be written leaves the former one as it was.
class VRK_EXPORT FileSaver : public NoticeBar
{
    Q_OBJECT

public:
    struct Kind {
        QString title;  ///< of the question for the file
        QString filter; ///< for the list of files
        QString suffix; ///< without a dot; every file gets it
    };
    /// Makes the content of the file; false if the user cancelled.
    using Content = std::function<bool(QByteArray* bytes)>;

    /// Questions and requests to the desktop. Tests replace these functions.
    struct Asking {
        /// The file to write, without a question about one that exists; empty if the user cancelled.
        std::function<QString(QWidget* parent, const Kind& kind, const QString& proposed)> file;
        /// Opens a file or a folder with the desktop's program for it; false if there is none.
        std::function<bool(const QUrl& url)> open;
    };
    /// Used by all savers.
    static Asking& asking();

    explicit FileSaver(const Kind& kind, QWidget* parent = nullptr);

    /// Added to the notice that the file is saved, such as that it is not complete.
    void setRemark(const QString& remark) { m_remark = remark; }
    /// Asks for the file and writes it. \a name needs no suffix and may be any text.
    void save(const QString& folder, const QString& name, const Content& content);
    /// Writes this file and shows the result; replaces an existing file. False if nothing was written.
    bool write(const QString& file, const Content& content);

    /// A file name made from any text: signs that a desktop or a file share refuses are replaced.
    static QString fileName(const QString& text);

private:
    enum Answer { Replace, Elsewhere, OpenFile, OpenFolder, Close };

    void ask(const QString& proposed);
    void answer(int id);
    void open(const QString& path);
    void fail(const QString& reason);

    Kind m_kind;
    Content m_content;
    QString m_file;
    QString m_remark;
};
