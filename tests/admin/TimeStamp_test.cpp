#include "EvidenceBench.h"

/// Time stamps of an outside authority, made with openssl.
class TimeStamp_test : public EvidenceBench
{
    Q_OBJECT

private slots:
    void init() { reset(); }

    void aTimeStampIsKeptAndExported();
    void stampsThatDoNotFitAreRefused_data();
    void stampsThatDoNotFitAreRefused();
    void aCourierBringsTheStamp();
    void withoutOpensslThereIsNoStamp();

private:
    static int sh(const QString& line)
    {
        return QProcess::execute(QStringLiteral("sh"),
                                 {QStringLiteral("-c"), line + QStringLiteral(" 2>/dev/null")});
    }
    /// Makes a time stamp authority in the folder; the command that answers its standard input.
    QString authority(const char* name = "tsa") const
    {
        const QString base = m_admin->path(QLatin1String(name));
        if (sh(QStringLiteral(
                   "openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes -keyout %1.key "
                   "-out %1.pem -subj /CN=tsa -days 2 -addext extendedKeyUsage=critical,timeStamping")
                   .arg(base)) != 0)
            qFatal("openssl makes no certificate");
        QFile settings(base + QStringLiteral(".cnf"));
        if (!settings.open(QIODevice::WriteOnly))
            qFatal("the authority cannot be written");
        settings.write(
            QStringLiteral("[tsa]\ndefault_tsa = one\n[one]\nserial = %1.serial\nsigner_cert = %1.pem\n"
                           "signer_key = %1.key\nsigner_digest = sha256\ndefault_policy = 1.2.3.4.1\n"
                           "digests = sha256\ness_cert_id_alg = sha256\n")
                .arg(base)
                .toUtf8());
        return QStringLiteral("cat > %1.query && openssl ts -reply -config %1.cnf -queryfile %1.query")
            .arg(base);
    }
    QStringList stamp(const QString& command, const char* certificate = "tsa.pem") const
    {
        return {QStringLiteral("--tsa"), command, QStringLiteral("--tsa-ca"),
                m_admin->path(QLatin1String(certificate))};
    }
    int stamps() const { return m_store->value(QStringLiteral("SELECT count(*) FROM LogStamps")).toInt(); }
};

void TimeStamp_test::aTimeStampIsKeptAndExported()
{
    const QString command = authority();
    QCOMPARE(seal({QStringLiteral("--init")}), 0);
    QCOMPARE(verify({}, {}), 0);
    QVERIFY(exported("README.txt").contains(QStringLiteral("доказывает: меток времени в ней нет")));
    QVERIFY2(seal(stamp(command)) == 0, qPrintable(m_admin->err));
    QVERIFY2(m_admin->out.contains(QStringLiteral("проверена и сохранена")), qPrintable(m_admin->out));
    QCOMPARE(stamps(), 1);
    // The same head is not stamped a second time.
    QCOMPARE(seal(stamp(QStringLiteral("exit 1"))), 0);
    QVERIFY2(m_admin->out.contains(QStringLiteral("уже есть")), qPrintable(m_admin->out));
    QVERIFY2(verify({}, {}) == 0, qPrintable(m_said));
    const QString line = exported("README.txt")
                             .section(QStringLiteral("openssl ts -verify"), 1)
                             .section(QLatin1Char('\n'), 0, 0);
    QCOMPARE(sh(QStringLiteral("cd %1 && openssl ts -verify").arg(m_folder) +
                QString(line).replace(QStringLiteral("центр.pem"), m_admin->path(QStringLiteral("tsa.pem")))),
             0);
    QVERIFY2(m_admin->call("check") == 0, qPrintable(m_admin->out));
    QCOMPARE(seal({QStringLiteral("--tsa"), command}), int(Command::WrongUsage));
}

void TimeStamp_test::stampsThatDoNotFitAreRefused_data()
{
    QTest::addColumn<QString>("command"); // %1: that of the authority
    QTest::addColumn<QString>("certificate");
    QTest::addColumn<QString>("reason");
    const auto add = [](const char* name, const char* command, const char* certificate, const char* reason) {
        QTest::newRow(name) << QString::fromUtf8(command) << QString::fromUtf8(certificate)
                            << QString::fromUtf8(reason);
    };
    add("of another head", "echo other > other; openssl ts -query -data other -sha256 -cert | (%1)",
        "tsa.pem", "не принята");
    add("of another authority", "%1", "other.pem", "не принята");
    add("broken", "%1 | tr '\\003' '\\004'", "tsa.pem", "не принята");
    add("cut", "%1 | head -c 200", "tsa.pem", "не принята");
    add("refused by the authority", "echo x | (%1)", "tsa.pem", "");
    add("a command that fails", "echo 'no link' >&2; exit 3", "tsa.pem", "no link");
    add("a command without an answer", "true", "tsa.pem", "Ответ пуст");
    add("a command that hangs", "sleep 60 | sleep 60", "tsa.pem", "Ответа нет дольше 1 с.");
    add("a command that never stops writing", "yes", "tsa.pem", "Ответ слишком велик");
    add("no certificate", "%1", "none.pem", "none.pem");
}

void TimeStamp_test::stampsThatDoNotFitAreRefused()
{
    QFETCH(QString, command);
    QFETCH(QString, certificate);
    QFETCH(QString, reason);
    const QString own = authority();
    authority("other");
    QCOMPARE(seal({QStringLiteral("--init")}), 0);
    const QString line =
        QStringLiteral("cd %1; ").arg(m_admin->folder.path()) + command.replace(QStringLiteral("%1"), own);
    QCOMPARE(seal(stamp(line, certificate.toUtf8().constData()) +
                  QStringList{QStringLiteral("--tsa-seconds"), QStringLiteral("1")}),
             int(Command::Failed));
    QVERIFY2(m_admin->err.contains(reason) && !m_admin->err.isEmpty(), qPrintable(m_admin->err));
    QCOMPARE(stamps(), 0);
    QCOMPARE(m_store->value(QStringLiteral("SELECT count(*) FROM LogHeads")).toInt(), 1);
}

void TimeStamp_test::aCourierBringsTheStamp()
{
    const QString command = authority();
    const QString request = m_admin->path(QStringLiteral("out.tsq"));
    const QString response = m_admin->path(QStringLiteral("back.tsr"));
    QCOMPARE(seal({QStringLiteral("--init")}), 0);
    const int size = m_store->value(QStringLiteral("SELECT size FROM LogHeads")).toInt();
    QVERIFY2(seal({QStringLiteral("--tsa"), request}) == 0, qPrintable(m_admin->err));
    QCOMPARE(seal({QStringLiteral("--tsa"), request}), int(Command::Failed)); // it is there already
    write("пока курьер в пути");
    QCOMPARE(seal(), 0);
    QCOMPARE(seal(stamp(response)), int(Command::Failed)); // not back yet
    QCOMPARE(sh(QStringLiteral("(%1) < %2 > %3").arg(command, request, response)), 0);
    QVERIFY2(seal(stamp(response)) == 0, qPrintable(m_admin->err));
    QCOMPARE(m_store->value(QStringLiteral("SELECT size FROM LogStamps")).toInt(), size);
    QVERIFY(QFile::remove(response));
    QCOMPARE(sh(QStringLiteral("openssl ts -query -data %1 -sha256 -cert | (%2) > %3")
                    .arg(key(), command, response)),
             0);
    QCOMPARE(seal(stamp(response)), int(Command::Failed));
    QVERIFY2(m_admin->err.contains(QStringLiteral("нет метки времени для печатей")),
             qPrintable(m_admin->err));
}

void TimeStamp_test::withoutOpensslThereIsNoStamp()
{
    QCOMPARE(seal({QStringLiteral("--init")}), 0);
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", QFile::encodeName(m_admin->folder.path()));
    const int code = seal(stamp(QStringLiteral("true")));
    qputenv("PATH", path);
    QCOMPARE(code, int(Command::Failed));
    QVERIFY2(m_admin->err.contains(QStringLiteral("установите пакет openssl")), qPrintable(m_admin->err));
}

QTEST_GUILESS_MAIN(TimeStamp_test)
#include "TimeStamp_test.moc"
