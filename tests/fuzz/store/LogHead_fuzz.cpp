#include "FuzzTarget.h"
#include "HeadBook.h"
#include "LogHead.h"

// A file of heads may contain anything: its notes are parts of it, none counts without a signature, and a key that
// can be read is written as it was read.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const auto key = SealKey::fromSeed(QByteArray(32, '\x07'), "seal");
    const QByteArray text(reinterpret_cast<const char*>(data), static_cast<int>(size));
    QByteArray joined;
    for (const QByteArray& part : HeadBook::parse(text)) {
        joined += part;
        const SignedNote note(part);
        fuzzRequire(!note.isValid() || (note.head().size >= 0 && part.startsWith("vrk-logbook/")));
        fuzzRequire(!note.signer({key->verifier()}).isValid());
    }
    fuzzRequire(text.endsWith(joined));
    for (const VerifierKey& read : VerifierKey::parseAll(text)) {
        fuzzRequire(read.isValid());
        fuzzRequire(VerifierKey::parse(read.text()).text() == read.text());
    }
    return 0;
}

std::vector<QByteArray> fuzzSeeds()
{
    const QByteArray root = QByteArray(32, 'r').toBase64();
    return {"vrk-logbook/A\n17\n" + root + "\ntime 2026-11-22T18:40:00Z\n\n\xE2\x80\x94 seal " +
                QByteArray(68, 's').toBase64() + "\nvrk-logbook/A\n18\n" + root + "\n\n",
            VerifierKey("seal", QByteArray(32, 'k')).text() + "\n# comment\n"};
}
