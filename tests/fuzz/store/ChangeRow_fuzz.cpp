#include "ChangePacker.h"
#include "ChangeRow.h"
#include "CMDArray.h"
#include "CodePage.h"
#include "FuzzTarget.h"

// For any bytes as a row of the change log: they are parsed or give an empty row, and an event made from
// them can be unpacked again.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const std::unique_ptr<CodePage> codePage = CodePage::create("Windows-1251");
    static ChangePacker packer(codePage.get());
    static const QVector<CatalogTable>& tables = TableCatalog::tables();

    // The first byte chooses the table, a NUL separates the old row from the new one.
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const CatalogTable& table =
        tables.at(bytes.isEmpty() ? 0 : static_cast<uchar>(bytes.at(0)) % tables.size());
    const int parting = bytes.indexOf('\0');
    const QByteArray oldRow = parting < 0 ? QByteArray() : bytes.mid(1, parting - 1);
    const QByteArray newRow = parting < 0 ? bytes.mid(1) : bytes.mid(parting + 1);

    const ChangeRow row(newRow);
    for (int i = 0; i <= row.count(); ++i) {
        fuzzRequire(i < row.count() || row.raw(i).isEmpty());
        row.isNull(i);
        row.isBlob(i);
        row.text(i);
        row.number(i);
    }

    const QByteArray packed = packer.pack(table, oldRow, newRow);
    fuzzRequire(packed.isEmpty() == newRow.isEmpty());
    if (!packed.isEmpty()) {
        MDRData record;
        MDRRecordType type;
        MDRRecInit(&record);
        MDRTypInit(&type);
        fuzzRequire(MDRRecSet(&record, packed.constData(), packed.size()) == mdr_Ok);
        fuzzRequire(MDRTypGen(&type, "NCI", &record) == mdr_Ok && type.count == table.fields.size());
    }
    return 0;
}

std::vector<QByteArray> fuzzSeeds()
{
    return {QByteArrayLiteral("\x01[\"K\",1.5,null,\"\\u0416\\n\",{\"sha256\":\"00\",\"length\":3},-7]"),
            QByteArray("\x02[\"K\",\"a\",0]\0[\"K\",\"b\",1e300]", 25), QByteArrayLiteral("\x00[]"),
            QByteArrayLiteral("\x03[\"\\ud83d\\ude00\\\\\\\"]\",[[],{}],true]"),
            QByteArrayLiteral("\x04[\"REC\",1700000000.25,null,\"<p>text</p>\",\"\",2147483648]")};
}
