#include "../support/TestFolder.h"
#include "KeptDraft.h"
#include "KeptTexts.h"
#include "KeptWriter.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QLineEdit>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace
{
bool isDiskFull = false;
mode_t modesOfFolders = 0; ///< all with which folders were made
} // namespace

// The program's own calls come here: a disk that is full reports it no later than at the flush.
extern "C" int fsync(int file)
{
    if (isDiskFull) {
        errno = ENOSPC;
        return -1;
    }
    return static_cast<int>(::syscall(SYS_fsync, file));
}
extern "C" int mkdirat(int parent, const char* name, mode_t mode) noexcept
{
    modesOfFolders |= mode;
    return static_cast<int>(::syscall(SYS_mkdirat, parent, name, mode));
}

namespace
{
const QString place = QStringLiteral("record/DEP");

KeptTexts::Values values(const QString& text)
{
    return {{QStringLiteral("text"), text}, {QStringLiteral("caption"), QStringLiteral("запись")}};
}

QString textOf(const KeptTexts::Text& text)
{
    return text.values.value(QStringLiteral("text"));
}

/// A program of a login, started over a folder.
struct Program {
    explicit Program(const QString& folder, const QString& login = QStringLiteral("ivanov"),
                     const QString& store = QStringLiteral("/store.sqlite"))
        : texts(std::make_unique<KeptTexts>())
    {
        texts->open(folder, login, store);
    }
    KeptTexts* operator->() const { return texts.get(); }
    QStringList offered() const
    {
        QStringList found;
        for (const KeptTexts::Text& text : texts->offered(place))
            found << textOf(text);
        return found;
    }
    std::unique_ptr<KeptTexts> texts;
};
} // namespace

class KeptTexts_test : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder{testFolderTemplate()};
    int m_made = 0;

    /// A folder that was not used before.
    QString folder() { return m_folder.filePath(QString::number(++m_made)) + QStringLiteral("/kept"); }
    static QStringList filesIn(const QString& folder)
    {
        QStringList files;
        QDirIterator found(folder, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
        while (found.hasNext())
            files << found.next();
        return files;
    }
    static mode_t modeOf(const QString& path)
    {
        struct stat about {
        };
        return ::lstat(QFile::encodeName(path).constData(), &about) == 0 ? about.st_mode & 07777 : 0;
    }
    static QByteArray contentOf(const QString& file)
    {
        QFile open(file);
        return open.open(QIODevice::ReadOnly) ? open.readAll() : QByteArray();
    }
    static void expect(const char* pattern)
    {
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QLatin1String(pattern)));
    }

private slots:
    void textOfAnEndedProgramIsOfferedAgain()
    {
        const QString where = folder();
        const QString hard = QStringLiteral("emoji \U0001F600, нулевой ") + QChar(0) + QChar(0xD800) +
                             QStringLiteral(" и \u05D0");
        {
            Program first(where);
            first->keep(place, values(QStringLiteral("раньше")));
            first->keep(place, values(hard));
            QVERIFY(first->flush());
        }
        Program next(where);
        QCOMPARE(next.offered(), QStringList({QStringLiteral("раньше"), hard}));
        QCOMPARE(next->left().size(), 2);
        QVERIFY(next->left().first().isLeft);
        QCOMPARE(next->left().last().values, values(hard));
        QVERIFY(next->offered(QStringLiteral("comment")).isEmpty());
    }

    void writtenTextIsGoneForGood()
    {
        const QString where = folder();
        {
            Program first(where);
            const QByteArray id = first->keep(place, values(QStringLiteral("один")));
            first->keep(place, values(QStringLiteral("два")));
            first->keep(place, values(QStringLiteral("один и ещё")), id);
            QVERIFY(first->flush());
            QCOMPARE(filesIn(where).size(), 2);
            first->forget(id);
            QVERIFY(first->flush());
            QCOMPARE(filesIn(where).size(), 1);
        }
        QCOMPARE(Program(where).offered(), QStringList({QStringLiteral("два")}));
    }

    void theEndOfAProgramWritesWhatIsWaiting()
    {
        const QString where = folder();
        {
            Program first(where);
            first->keep(place, values(QStringLiteral("а")));
            QVERIFY(first->flush());
            first->keep(place, values(QStringLiteral("б")));
        }
        QCOMPARE(Program(where).offered(), QStringList({QStringLiteral("а"), QStringLiteral("б")}));
    }

    void otherLoginAndOtherStoreSeeNothing()
    {
        const QString where = folder();
        {
            Program first(where);
            first->keep(place, values(QStringLiteral("моё")));
            QVERIFY(first->flush());
        }
        QVERIFY(Program(where, QStringLiteral("petrov")).offered().isEmpty());
        QVERIFY(
            Program(where, QStringLiteral("ivanov"), QStringLiteral("/other.sqlite")).offered().isEmpty());
        // A file that was moved into the folder of another login still identifies its login.
        const QString own = filesIn(where).first();
        Program other(where, QStringLiteral("petrov"));
        other->keep(place, values(QStringLiteral("чужое")));
        QVERIFY(other->flush());
        other.texts.reset();
        QString theirs;
        for (const QString& file : filesIn(where))
            if (file != own)
                theirs = file;
        QVERIFY(QFile::copy(own, QFileInfo(theirs).path() + u'/' + QFileInfo(own).fileName()));
        expect("kept texts: damaged file");
        QCOMPARE(Program(where, QStringLiteral("petrov")).offered(), QStringList({QStringLiteral("чужое")}));
        QCOMPARE(Program(where).offered(), QStringList({QStringLiteral("моё")}));
    }

    void twoProgramsOfALoginKeepApart()
    {
        const QString where = folder();
        auto first = std::make_unique<Program>(where);
        const QByteArray id = (*first)->keep(place, values(QStringLiteral("первая")));
        QVERIFY((*first)->flush());
        Program second(where);
        QVERIFY(second.offered().isEmpty());
        second->keep(place, values(QStringLiteral("вторая")));
        QVERIFY(second->flush());
        // Replacing the file passes on its lock: it is always locked.
        for (int i = 0; i < 3; ++i) {
            (*first)->keep(place, values(QStringLiteral("первая %1").arg(i)), id);
            QVERIFY((*first)->flush());
            QVERIFY(Program(where).offered().isEmpty());
        }
        QCOMPARE(filesIn(where).size(), 2);
        first.reset();
        QCOMPARE(Program(where).offered(), QStringList({QStringLiteral("первая 2")}));
    }

    void onlyTheUserCanReadTheFiles()
    {
        const QString where = folder();
        QVERIFY(QDir().mkpath(where));
        QVERIFY(::chmod(QFile::encodeName(where).constData(), 0777) == 0);
        const mode_t former = ::umask(0);
        Program program(where);
        program->keep(place, values(QStringLiteral("текст")));
        QVERIFY(program->flush());
        ::umask(former);
        const QString file = filesIn(where).value(0);
        QCOMPARE(modeOf(file), mode_t(0600));
        QCOMPARE(modeOf(QFileInfo(file).path()), mode_t(0700));
        QCOMPARE(modeOf(where), mode_t(0700));
        QCOMPARE(modesOfFolders, mode_t(0700)); // nobody can slip into one that was just made
    }

    void aFolderOfAnotherUserIsNotUsed()
    {
        if (::geteuid() != 0)
            QSKIP("only root can give a folder away");
        const QString where = folder();
        QVERIFY(QDir().mkpath(where));
        QVERIFY(::chown(QFile::encodeName(where).constData(), 65534, 65534) == 0);
        Program program(where);
        program->keep(place, values(QStringLiteral("текст")));
        QVERIFY(!program->flush());
        QVERIFY(filesIn(where).isEmpty());
    }

    void aFullDiskIsNamed()
    {
        Program program(folder());
        program->keep(place, values(QStringLiteral("текст")));
        isDiskFull = true;
        const bool isOnDisk = program->flush();
        const QString error = program->errorText();
        isDiskFull = false;
        QVERIFY(!isOnDisk);
        QVERIFY2(error.contains(QStringLiteral("нет места на диске")), qPrintable(error));
    }

    void foreignAndBrokenFilesAreLeftAside()
    {
        const QString where = folder();
        QString good;
        {
            Program first(where);
            first->keep(place, values(QStringLiteral("цел")));
            QVERIFY(first->flush());
            good = filesIn(where).first();
        }
        const QString inside = QFileInfo(good).path() + u'/';
        const auto name = [&inside](int digit) {
            return inside + QString(32, QChar(u'0' + digit)) + QStringLiteral(".kept");
        };
        const QByteArray whole = contentOf(good);
        const auto plant = [](const QString& file, const QByteArray& bytes) {
            QFile made(file);
            QVERIFY(made.open(QIODevice::WriteOnly) && made.write(bytes) == bytes.size());
        };
        const QString secret = m_folder.filePath(QStringLiteral("secret"));
        plant(secret, whole);
        plant(name(1), QByteArray());
        plant(name(2), whole.left(whole.size() - 1));
        plant(name(3), QByteArray(whole).replace(whole.size() - 3, 1, "~"));
        plant(name(4), QByteArray("\0\xff garbage", 10));
        const QString linked = m_folder.filePath(QStringLiteral("linked"));
        plant(linked, whole);
        QVERIFY(QFile::link(linked, name(5)));
        QVERIFY(::link(QFile::encodeName(secret).constData(), QFile::encodeName(name(6)).constData()) == 0);
        QVERIFY(::mkfifo(QFile::encodeName(name(7)).constData(), 0600) == 0);
        QVERIFY(QDir().mkdir(name(8)));
        plant(name(9), QByteArray());
        QVERIFY(QFile::resize(name(9), (64 << 20) + 1));
        plant(inside + QStringLiteral("notes.txt"), "мои заметки");
        plant(inside + QString(32, u'A') + QStringLiteral(".new"), "half"); // of a program that was killed
        for (int i = 0; i < 4; ++i)
            expect("kept texts: damaged file");
        expect("kept texts: .*cannot be opened"); // the link
        expect("kept texts: .*is no file of this user alone");
        expect("kept texts: .*is no file of this user alone");
        expect("kept texts: .*(cannot be opened|is no file of this user alone)");
        expect("kept texts: .*cannot be read"); // more than any text
        expect("kept texts: foreign file .*notes.txt");
        {
            Program next(where);
            QCOMPARE(next.offered(), QStringList({QStringLiteral("цел")}));
            next->forget(next->left().first().id);
            QVERIFY(next->flush());
        }
        for (int digit = 1; digit <= 9; ++digit) // all are still there
            QVERIFY(modeOf(name(digit)) != 0);
        QCOMPARE(contentOf(secret), whole);
        QVERIFY(QFile::exists(inside + QStringLiteral("notes.txt")));
        QVERIFY(!QFile::exists(inside + QString(32, u'A') + QStringLiteral(".new")));
        QVERIFY(!QFile::exists(good));
    }

    void aPlantedLinkIsNeverWrittenThrough()
    {
        // Planted in the place of the folder:
        const QString where = folder();
        const QString target = m_folder.filePath(QStringLiteral("target"));
        QVERIFY(QDir().mkpath(target) && QDir().mkpath(QFileInfo(where).path()));
        QVERIFY(QFile::link(target, where));
        {
            Program program(where);
            QSignalSpy failed(program.texts.get(), &KeptTexts::failed);
            program->keep(place, values(QStringLiteral("текст")));
            QVERIFY(!program->flush());
            QVERIFY(failed.wait(1000));
        }
        QVERIFY(filesIn(target).isEmpty());

        // Planted in the place of the file to be written:
        const QString other = folder();
        const QString secret = m_folder.filePath(QStringLiteral("secret2"));
        QFile(secret).open(QIODevice::WriteOnly);
        Program program(other);
        const QByteArray id = program->keep(place, values(QStringLiteral("текст")));
        QVERIFY(program->flush());
        const QString inside = QFileInfo(filesIn(other).first()).path() + u'/';
        QVERIFY(QFile::link(secret, inside + QString::fromLatin1(id) + QStringLiteral(".new")));
        QVERIFY(QFile::remove(inside + QString::fromLatin1(id) + QStringLiteral(".kept")));
        QVERIFY(QFile::link(secret, inside + QString::fromLatin1(id) + QStringLiteral(".kept")));
        program->keep(place, values(QStringLiteral("текст 2")), id);
        QVERIFY(program->flush());
        QCOMPARE(contentOf(secret), QByteArray());
        program.texts.reset();
        QCOMPARE(Program(other).offered(), QStringList({QStringLiteral("текст 2")}));
    }

    void anInvalidFolderIsReportedOnceOnly()
    {
        const QString where = folder();
        QVERIFY(QDir().mkpath(QFileInfo(where).path()));
        QVERIFY(QFile(where).open(QIODevice::WriteOnly)); // a file in its place
        Program program(where);
        QSignalSpy failed(program.texts.get(), &KeptTexts::failed);
        const QByteArray id = program->keep(place, values(QStringLiteral("а")));
        for (const QString& text : {QStringLiteral("аб"), QStringLiteral("абв")}) {
            program->keep(place, values(text), id);
            QVERIFY(!program->flush());
        }
        QCoreApplication::processEvents();
        QCOMPARE(failed.size(), 1);
        QVERIFY(!program->errorText().isEmpty());
        QCOMPARE(program.offered(), QStringList({QStringLiteral("абв")}));

        QVERIFY(QFile::remove(where)); // once repaired, the text is written without being typed again
        QVERIFY(program->flush());
        QVERIFY(program->errorText().isEmpty());
        program.texts.reset();
        QCOMPARE(Program(where).offered(), QStringList({QStringLiteral("абв")}));
    }

    void aFullDiskLeavesTheFormerTextWhole()
    {
        const QString where = folder();
        Program program(where);
        QSignalSpy failed(program.texts.get(), &KeptTexts::failed);
        const QByteArray id = program->keep(place, values(QStringLiteral("поместилось")));
        QVERIFY(program->flush());
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit usual{};
        QVERIFY(::getrlimit(RLIMIT_FSIZE, &usual) == 0);
        const rlimit small{4096, usual.rlim_max};
        QVERIFY(::setrlimit(RLIMIT_FSIZE, &small) == 0);
        program->keep(place, values(QString(10000, u'ж')), id);
        const bool isOnDisk = program->flush();
        const QStringList files = filesIn(where);
        const QByteArray bytes = contentOf(files.value(0));
        QVERIFY(::setrlimit(RLIMIT_FSIZE, &usual) == 0);
        QVERIFY(!isOnDisk);
        QCOMPARE(files.size(), 1); // no part of the new one
        KeptTexts::Text text;
        QVERIFY(KeptWriter::unpack(bytes, QByteArray("ivanov\0/store.sqlite", 20), &text));
        QCOMPARE(textOf(text), QStringLiteral("поместилось"));
        QVERIFY(failed.size() == 1 || failed.wait(1000));
        QVERIFY(program->flush()); // there is space again
    }

    void aLongTextIsWrittenOnceForManyKeys()
    {
        const QString where = folder();
        QString text(5 << 20, u'ж');
        Program program(where);
        const QByteArray id = program->keep(place, values(text));
        QVERIFY(program->flush());
        struct stat before {
        };
        QVERIFY(::stat(QFile::encodeName(filesIn(where).first()).constData(), &before) == 0);
        constexpr int keys = 200;
        QElapsedTimer time;
        time.start();
        KeptWriter::pack({id, place, values(text), 0, false}, QByteArray());
        const qint64 once = time.nsecsElapsed();
        time.restart();
        for (int i = 0; i < keys; ++i) {
            KeptTexts::Values typed = values(text);
            typed.insert(QStringLiteral("key"), QString::number(i));
            program->keep(place, typed, id);
        }
        QVERIFY2(time.nsecsElapsed() < 10 * once, "the keys waited for the disk");
        QVERIFY(program->flush());
        program.texts.reset();
        Program next(where);
        QCOMPARE(next->left().size(), 1);
        QCOMPARE(textOf(next->left().first()), text);
        QCOMPARE(next->left().first().values.value(QStringLiteral("key")), QString::number(keys - 1));
    }

    void aDraftFollowsItsWindow()
    {
        KeptTexts texts;
        QLineEdit window;
        window.show();
        KeptDraft draft(&window, &texts, [&window] {
            return window.text().isEmpty() ? KeptTexts::Values() : values(window.text());
        });
        draft.setPlace(place);
        connect(&window, &QLineEdit::textChanged, &draft, &KeptDraft::touch);
        window.setText(QStringLiteral("набрано"));
        QCOMPARE(texts.held(&window).size(), 1); // including recently typed text
        QVERIFY(texts.offered(place).isEmpty()); // it is in its window
        window.clear();
        QVERIFY(texts.held(&window).isEmpty());
        window.setText(QStringLiteral("снова"));
        draft.release();
        QCOMPARE(texts.offered(place).size(), 1);
        draft.take(texts.offered(place).first());
        QVERIFY(texts.offered(place).isEmpty());
        draft.forget();
        QVERIFY(texts.offered(place).isEmpty());
    }

    void droppedTextComesBackOnlyWhenItIsTypedOn()
    {
        KeptTexts texts;
        QWidget module;
        auto* line = new QLineEdit(&module);
        module.show();
        KeptDraft draft(line, &texts, [line] { return values(line->text()); });
        connect(line, &QLineEdit::textChanged, &draft, &KeptDraft::touch);
        draft.setPlace(place);
        line->setText(QStringLiteral("текст"));
        texts.dropHeld(&module);
        QVERIFY(texts.held(&module).isEmpty());
        draft.release(); // the window is closed
        QVERIFY(texts.offered(place).isEmpty());
        line->setText(QStringLiteral("текст и ещё"));
        QCOMPARE(texts.held(&module).size(), 1);
    }

    void windowThatIsGoneLeavesItsText()
    {
        KeptTexts texts;
        {
            QLineEdit window;
            KeptDraft draft(&window, &texts, [&window] { return values(window.text()); });
            draft.setPlace(place);
            window.setText(QStringLiteral("текст"));
            draft.keepNow();
        }
        QCOMPARE(texts.offered(place).size(), 1);
    }
};

QTEST_MAIN(KeptTexts_test)
#include "KeptTexts_test.moc"
