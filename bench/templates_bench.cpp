// The configurator of templates: opening it, expanding its tree, searching and one rename, with 200
// categories and 2,000 templates and with ten times as many. Compare the larger figures with the smaller:
// ten times the rows may cost a little more than ten times as much; a rename should cost the same.

#include "BenchStore.h"
#include "CVrkCliApp.h"
#include "CVrkCliSes.h"
#include "CVrkTemplateEditor.h"
#include "TemplatesEditSourceModel.h"
#include "TemplatesProxyModel.h"
#include "TemplateTab.h"

#include <benchmark/benchmark.h>
#include <map>
#include <memory>
#include <QApplication>
#include <QLineEdit>
#include <QTabWidget>
#include <QTreeView>

namespace
{
QByteArray numbered(const char* prefix, int number)
{
    return prefix + QByteArray::number(number).rightJustified(8, '0');
}

const MDRFieldDescr userFields[] = {
    {"KeyLink", 32, mdr_TChar}, {"login", 64, mdr_TChar}, {"name_", 100, mdr_TChar}};
const MDRFieldDescr rightFields[] = {
    {"KeyLink", 32, mdr_TChar}, {"UserKey", 32, mdr_TChar}, {"rightName", 64, mdr_TChar}};

/// A store with common templates: categories three levels deep, ten templates in each.
class TemplateStore
{
public:
    explicit TemplateStore(int categories)
    {
        CRowBatch users(userFields, 3);
        MDRData* user = users.newRow(ROW_INSERT, "USER");
        users.SetValF(user, "login", MDRValue::text("bench"));
        users.SetValF(user, "name_", MDRValue::text("Bench"));
        users.RecPost(user);
        m_store.write("Users", users);
        CRowBatch rights(rightFields, 3);
        MDRData* right = rights.newRow(ROW_INSERT, "RIGHT");
        rights.SetValF(right, "UserKey", MDRValue::text("USER"));
        rights.SetValF(right, "rightName", MDRValue::text("ADMINISTRATOR"));
        rights.RecPost(right);
        m_store.write("UserRights", rights);

        CRowBatch folders(LogbookCatsTemplateFields, fieldCount(LogbookCatsTemplateFields));
        CRowBatch items(LogbookTemplatesFields, fieldCount(LogbookTemplatesFields));
        const QByteArray html =
            "<p>" + QByteArray(300, '\xE0') + " <a href=\"parameter:name=text\">x</a></p>";
        for (int i = 0; i < categories; ++i) {
            const QByteArray key = numbered("C", i);
            MDRData* folder = folders.newRow(ROW_INSERT, key);
            const QByteArray above = numbered("C", i / 20);
            if (i >= 20)
                folders.SetValF(folder, "ParentKey", MDRValue::text(above));
            folders.SetValF(folder, "nameLoc", MDRValue::text(key));
            folders.RecPost(folder);
            for (int j = 0; j < 10; ++j) {
                const QByteArray itemKey = numbered("T", i * 10 + j);
                MDRData* item = items.newRow(ROW_INSERT, itemKey);
                items.SetValF(item, "CategoryKey", MDRValue::text(key));
                items.SetValF(item, "nameLoc", MDRValue::text(itemKey));
                items.SetValF(item, "html", MDRValue::text(html));
                items.RecPost(item);
            }
        }
        m_store.write("LogbookCatsTemplate", folders);
        m_store.write("LogbookTemplates", items);
    }

    std::unique_ptr<Store> signIn() const
    {
        StoreError error;
        StoreLogin user;
        auto store = Store::open(m_store.url(), Store::Options(), &error);
        if (!store || !store->signIn(QStringLiteral("bench"), &user, &error))
            qFatal("nobody can sign in: %s", qPrintable(error.text));
        return store;
    }

private:
    BenchStore m_store;
};

const TemplateStore& storeOf(int categories)
{
    static std::map<int, std::unique_ptr<TemplateStore>> stores;
    std::unique_ptr<TemplateStore>& store = stores[categories];
    if (!store)
        store = std::make_unique<TemplateStore>(categories);
    return *store;
}

/// A configurator on such a store, its page of common templates in front.
class Client
{
public:
    explicit Client(const TemplateStore& store)
    {
        m_app.setSession(std::make_unique<CVrkCliSes>(store.signIn()));
        m_app.m_user_params.setValue(QStringLiteral("DEPARTMENTKEY"), QStringLiteral("DEPARTMENT"));
        m_app.session()->startEvents();
        m_window = std::make_unique<CVrkTemplateEditor>(&m_app);
        m_window->show();
    }
    void start()
    {
        if (!m_window->ModuleStart())
            qFatal("the configurator does not start");
        m_window->findChild<QTabWidget*>(QStringLiteral("templatesTabWidget"))->setCurrentIndex(0);
        benchmark::DoNotOptimize(m_window->grab());
    }
    TemplateTab* page() const { return m_window->currentTab(); }
    QTreeView* tree() const { return page()->findChild<QTreeView*>(QStringLiteral("templatesTree")); }
    QLineEdit* edit(const char* name) const { return page()->findChild<QLineEdit*>(QLatin1String(name)); }
    void paint() { benchmark::DoNotOptimize(m_window->grab()); }
    void deliver()
    {
        while (m_app.fetchEvents() > 0) {
        }
    }

private:
    CVrkCliApp m_app;
    std::unique_ptr<CVrkTemplateEditor> m_window;
};

void openConfigurator(benchmark::State& state)
{
    const TemplateStore& store = storeOf(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        Client client(store);
        client.start();
    }
}

void unfoldTree(benchmark::State& state)
{
    Client client(storeOf(static_cast<int>(state.range(0))));
    client.start();
    for (auto _ : state) {
        client.tree()->expandAll();
        client.paint();
        state.PauseTiming();
        client.tree()->collapseAll();
        state.ResumeTiming();
    }
}

void search(benchmark::State& state)
{
    const int templates = static_cast<int>(state.range(0)) * 10;
    Client client(storeOf(templates / 10));
    client.start();
    int number = 0;
    for (auto _ : state) {
        number = (number + 7919) % templates;
        client.edit("searchEdit")->setText(QString::fromLatin1(numbered("T", number)));
        client.paint();
    }
}

void rename(benchmark::State& state)
{
    Client client(storeOf(static_cast<int>(state.range(0))));
    client.start();
    client.edit("searchEdit")->setText(QStringLiteral("T00000105"));
    int number = 0;
    for (auto _ : state) {
        client.edit("templateNameEdit")->setText(QStringLiteral("T00000105 %1").arg(++number));
        client.page()->applyChanges();
        client.deliver();
        client.paint();
    }
    if (client.page()->isExistUnsaved())
        state.SkipWithError("the name was not saved");
}

BENCHMARK(openConfigurator)->Arg(200)->Arg(2000)->Unit(benchmark::kMillisecond);
BENCHMARK(unfoldTree)->Arg(200)->Arg(2000)->Unit(benchmark::kMillisecond);
BENCHMARK(search)->Arg(200)->Arg(2000)->Unit(benchmark::kMillisecond);
BENCHMARK(rename)->Arg(200)->Arg(2000)->Unit(benchmark::kMillisecond);
} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
