#include "FuzzTarget.h"
#include "MDRValues.h"
#include "PublicTemplatesEditSourceModel.h"
#include "TemplateTables.h"

#include <QGuiApplication>
#include <QMimeData>
#include <QTextCodec>

// For a drop of any payload the tree of templates moves nothing, or requests a move of a key that is not
// empty.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static int count = 1;
    static char name[] = "payload_fuzz";
    static char* names[] = {name, nullptr};
    static const QGuiApplication application(count, names);
    static const auto tables = std::make_unique<TemplateTables>();
    static const auto model = [] {
        CModelTable categories("LogbookCatsTemplate");
        CModelTable templates("LogbookTemplates");
        MDACopy(categories.data.array, tables->categoriesEdit.data.array, 0);
        MDACopy(templates.data.array, tables->templatesEdit.data.array, 0);
        TemplateTables::copyFrom(&tables->categories, &categories);
        TemplateTables::copyFrom(&tables->templates, &templates);
        MDRData* category = MDARecNew(tables->categories.data.array);
        tables->categories.data.SetValF(category, "KeyLink", MDRValue::text("C"));
        tables->categories.data.SetValF(category, "nameLoc", MDRValue::text("c"));
        tables->categories.data.RecPost(category);
        auto made = std::make_unique<PublicTemplatesEditSourceModel>();
        made->setTextCodec(QTextCodec::codecForName("Windows-1251"));
        made->setCatsTemplateTable(&tables->categories);
        made->setTemplatesTable(&tables->templates);
        made->setCatsTemplateEdit(&tables->categoriesEdit);
        made->setTemplatesEdit(&tables->templatesEdit);
        made->setEditable(true);
        fuzzRequire(made->isReady() && made->rowCount() == 1);
        return made;
    }();
    static QString moved;
    static const auto connection =
        QObject::connect(model.get(), &TemplatesEditSourceModel::moveToCategory, model.get(),
                         [](const QString& key, const QModelIndex&) { moved = key; });
    Q_UNUSED(connection)

    const QByteArray bytes(reinterpret_cast<const char*>(data) + (size > 0 ? 1 : 0),
                           static_cast<int>(size > 0 ? size - 1 : 0));
    const unsigned choice = size > 0 ? data[0] : 0;
    QMimeData payload;
    if (choice & 1U)
        payload.setData(QStringLiteral("application/category/KeyLink"), bytes);
    if (choice & 2U)
        payload.setData(QStringLiteral("application/template/KeyLink"), bytes);
    const QModelIndex target = choice & 4U ? model->index(0, 0) : QModelIndex();
    moved.clear();
    model->canDropMimeData(&payload, Qt::MoveAction, 0, 0, target);
    fuzzRequire(model->dropMimeData(&payload, Qt::MoveAction, 0, 0, target) == !moved.isEmpty());
    fuzzRequire(model->rowCount() == 1);
    return 0;
}

std::vector<QByteArray> fuzzSeeds()
{
    return {QByteArray("\x05\0\0\0\x02\0C", 7), QByteArray("\x06\0\0\0\x04\0A\0B", 9),
            QByteArray("\x03\xff\xff\xff\xfe\0C", 7), QByteArray("\x07\xff\xff\xff\xff", 5)};
}
