#include "DepsTemplatesEditSourceModel.h"
#include "OrgsTemplatesEditSourceModel.h"
#include "PublicTemplatesEditSourceModel.h"
#include "RecordValue.h"
#include "TemplatesProxyModel.h"
#include "TemplateTables.h"

#include <QAbstractItemModelTester>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>
#include <QTextCodec>

/// The three tree models and their proxy on arrays filled by the test.
class TemplatesEditSourceModel_test : public QObject
{
    Q_OBJECT

private:
    using Fields = std::vector<std::pair<const char*, const char*>>;

    QTextCodec* m_codec = QTextCodec::codecForName("Windows-1251");
    std::unique_ptr<TemplateTables> m_tables;
    std::unique_ptr<CModelTable> m_orgTypes;
    std::unique_ptr<CModelTable> m_departments;

    MDRData* add(CModelTable* table, const char* key, const QString& name, const Fields& fields,
                 int flags = 0)
    {
        MDRData* record = MDARecNew(table->data.array);
        MDRSetFlags(record, flags);
        const QByteArray bytes = m_codec->fromUnicode(name);
        table->data.SetValF(record, "KeyLink", MDRValue::text(key));
        table->data.SetValF(record, "nameLoc", MDRValue::text(bytes));
        table->data.SetValF(record, "name_", MDRValue::text(bytes));
        for (const auto& [field, value] : fields)
            table->data.SetValF(record, field, MDRValue::text(value));
        return table->data.RecPost(record);
    }
    std::unique_ptr<CModelTable> roots(const char* name)
    {
        static const MDRFieldDescr fields[] = {{"KeyLink", 32, mdr_TChar}, {"name_", 100, mdr_TChar}};
        auto table = std::make_unique<CModelTable>(name);
        MDAFldAdd(table->data.array, 2, fields);
        table->data.KeyAdd("KeyLink", 0);
        return table;
    }
    template <typename Model>
    std::unique_ptr<Model> make(bool isEditable = true)
    {
        auto model = std::make_unique<Model>();
        model->setTextCodec(m_codec);
        model->setOrgTypesTable(m_orgTypes.get());
        model->setDepartmentsTable(m_departments.get());
        model->setCatsTemplateTable(&m_tables->categories);
        model->setTemplatesTable(&m_tables->templates);
        model->setCatsTemplateEdit(&m_tables->categoriesEdit);
        model->setTemplatesEdit(&m_tables->templatesEdit);
        model->setEditable(isEditable);
        return model;
    }
    static QStringList rows(const TemplatesEditSourceModel& model, const QModelIndex& parent = QModelIndex())
    {
        QStringList keys;
        for (int i = 0; i < model.rowCount(parent); ++i)
            keys << model.index(i, 0, parent).data(Qt::UserRole).toString();
        return keys;
    }
    MDRData* record(const char* key) const
    {
        const CModelTable* const tables[] = {&m_tables->categories,     &m_tables->templates,
                                             &m_tables->categoriesEdit, &m_tables->templatesEdit,
                                             m_orgTypes.get(),          m_departments.get()};
        for (const CModelTable* table : tables)
            if (MDRData* found = recordByKeyLink(table, key))
                return found;
        return nullptr;
    }

private slots:
    void init()
    {
        m_tables = std::make_unique<TemplateTables>();
        CModelTable categories("LogbookCatsTemplate");
        CModelTable templates("LogbookTemplates");
        MDACopy(categories.data.array, m_tables->categoriesEdit.data.array, 0);
        MDACopy(templates.data.array, m_tables->templatesEdit.data.array, 0);
        TemplateTables::copyFrom(&m_tables->categories, &categories);
        TemplateTables::copyFrom(&m_tables->templates, &templates);
        m_orgTypes = roots("OrgTypes");
        m_departments = roots("Departments");
        add(m_orgTypes.get(), "TYPE", QStringLiteral("Сети"), {});
        add(m_departments.get(), "DEP", QStringLiteral("ЦДС"), {});
        add(m_departments.get(), "DEP_EMPTY", QStringLiteral("Пустое"), {});

        CModelTable* cats = &m_tables->categories;
        add(cats, "C2", QStringLiteral("Вторая"), {});
        add(cats, "C1", QStringLiteral("Первая"), {});
        add(cats, "C1A", QStringLiteral("Внутри"), {{"ParentKey", "C1"}});
        add(cats, "O1", QStringLiteral("Типовая"), {{"OrgTypeKey", "TYPE"}});
        add(cats, "D1", QStringLiteral("Местная"), {{"DepartmentKey", "DEP"}});
        add(cats, "D1A", QStringLiteral("Под местной"), {{"ParentKey", "D1"}});
        add(&m_tables->templates, "T1", QStringLiteral("Шаблон"), {{"CategoryKey", "C1"}});
        add(&m_tables->templates, "T2", QStringLiteral("Другой"), {{"CategoryKey", "C1"}});
        add(&m_tables->templates, "TD", QStringLiteral("Местный"), {{"CategoryKey", "D1A"}});
    }

    void childrenStandInTheirOrder()
    {
        add(&m_tables->categoriesEdit, "NEW_C", QStringLiteral("Новая"), {{"ParentKey", "C1"}}, ROW_INSERT);
        add(&m_tables->categoriesEdit, "C1A", QStringLiteral("Правка"), {{"ParentKey", "C1"}}, ROW_UPDATE);
        add(&m_tables->templatesEdit, "NEW_T", QStringLiteral("Новый"), {{"CategoryKey", "C1"}}, ROW_INSERT);
        add(&m_tables->templatesEdit, "T1", QStringLiteral("Правка"), {{"CategoryKey", "C1"}}, ROW_UPDATE);
        add(&m_tables->templatesEdit, "NO_C", QStringLiteral("Нигде"), {}, ROW_INSERT);
        const auto model = make<PublicTemplatesEditSourceModel>();
        QAbstractItemModelTester tester(model.get(), QAbstractItemModelTester::FailureReportingMode::Fatal);
        QCOMPARE(rows(*model), (QStringList{QStringLiteral("C2"), QStringLiteral("C1")}));
        const QModelIndex c1 = model->index(1, 0);
        QCOMPARE(rows(*model, c1).join(QLatin1Char(' ')), QStringLiteral("C1A NEW_C T1 T2 NEW_T"));
        QCOMPARE(model->folderCount(c1), 2);
        QCOMPARE(model->folderCount(QModelIndex()), 2);
        QCOMPARE(model->nextCategoryRow(c1), 1);
        QCOMPARE(model->nextTemplateRow(c1), 4);
        QCOMPARE(model->columnCount(), 1);
        QVERIFY(!model->index(5, 0, c1).isValid());
        QVERIFY(!model->index(-1, 0, c1).isValid());
        QCOMPARE(model->rowCount(model->index(2, 0, c1)), 0);
    }

    void rootsStandAtTheTop()
    {
        const auto orgs = make<OrgsTemplatesEditSourceModel>();
        const auto deps = make<DepsTemplatesEditSourceModel>();
        QAbstractItemModelTester orgsTester(orgs.get(),
                                            QAbstractItemModelTester::FailureReportingMode::Fatal);
        QAbstractItemModelTester depsTester(deps.get(),
                                            QAbstractItemModelTester::FailureReportingMode::Fatal);
        QCOMPARE(rows(*orgs), QStringList{QStringLiteral("TYPE")});
        QCOMPARE(rows(*orgs, orgs->index(0, 0)), QStringList{QStringLiteral("O1")});
        QCOMPARE(rows(*deps), (QStringList{QStringLiteral("DEP"), QStringLiteral("DEP_EMPTY")}));
        QCOMPARE(deps->folderCount(QModelIndex()), 2);
        QCOMPARE(rows(*deps, deps->index(0, 0)), QStringList{QStringLiteral("D1")});
        QCOMPARE(deps->rowCount(deps->index(1, 0)), 0); // a department without categories
        const QModelIndex deepest = deps->indexByRecord(record("TD"));
        QCOMPARE(deepest.parent().parent().parent(), deps->index(0, 0));
        QVERIFY(!deepest.parent().parent().parent().parent().isValid());
        QVERIFY(!orgs->indexByRecord(record("TD")).isValid());
        QVERIFY(!orgs->indexByRecord(record("C1")).isValid());
    }

    void aNewCategoryHasRowsInTheCommonTreeOnly()
    {
        add(&m_tables->categoriesEdit, "NEW", QStringLiteral("Новая"), {{"ParentKey", "C1"}}, ROW_INSERT);
        add(&m_tables->templatesEdit, "IN_NEW", QStringLiteral("Внутри"), {{"CategoryKey", "NEW"}},
            ROW_INSERT);
        add(&m_tables->categoriesEdit, "NEW_D", QStringLiteral("Новая"), {{"DepartmentKey", "DEP"}},
            ROW_INSERT);
        add(&m_tables->templatesEdit, "IN_D", QStringLiteral("Внутри"), {{"CategoryKey", "NEW_D"}},
            ROW_INSERT);
        const auto common = make<PublicTemplatesEditSourceModel>(false);
        QCOMPARE(common->rowCount(common->indexByRecord(record("NEW"))), 1);
        QVERIFY(common->indexByRecord(record("IN_NEW")).isValid());
        const auto deps = make<DepsTemplatesEditSourceModel>();
        QVERIFY(deps->indexByRecord(record("NEW_D")).isValid());
        QCOMPARE(deps->rowCount(deps->indexByRecord(record("NEW_D"))), 0);
        QVERIFY(!deps->indexByRecord(record("IN_D")).isValid());
    }

    void isEmptyUntilAllTablesAreThere()
    {
        PublicTemplatesEditSourceModel model;
        QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
        model.setTextCodec(m_codec);
        model.setOrgTypesTable(m_orgTypes.get()); // not of this level
        model.setCatsTemplateTable(&m_tables->categories);
        model.setTemplatesTable(&m_tables->templates);
        model.setCatsTemplateEdit(&m_tables->categoriesEdit);
        QCOMPARE(resets.size(), 4);
        QVERIFY(!model.isReady());
        QCOMPARE(model.rowCount(), 0);
        QCOMPARE(model.folderCount(QModelIndex()), 0);
        QVERIFY(!model.index(0, 0).isValid());
        QVERIFY(!model.indexByRecord(record("C1")).isValid());
        model.setTemplatesEdit(&m_tables->templatesEdit);
        QVERIFY(model.isReady());
        QCOMPARE(model.rowCount(), 2);
        model.clear();
        QCOMPARE(model.rowCount(), 0);
        DepsTemplatesEditSourceModel deps;
        deps.setDepartmentsTable(m_departments.get());
        QVERIFY(!deps.isReady());
    }

    void dataTellsNameKindAndKey()
    {
        add(&m_tables->templatesEdit, "NEW_T", QStringLiteral("Новый"), {{"CategoryKey", "D1"}}, ROW_INSERT);
        MDRData* nameless = add(&m_tables->templates, "N", QString(), {{"CategoryKey", "D1"}});
        m_tables->templates.data.SetValF(nameless, "nameLoc", MDRValue::null());
        const auto deps = make<DepsTemplatesEditSourceModel>();
        const auto common = make<PublicTemplatesEditSourceModel>();
        const QModelIndex root = deps->index(0, 0);
        QCOMPARE(root.data().toString(), QStringLiteral("ЦДС"));
        QCOMPARE(root.data(Qt::ToolTipRole).toString(), QStringLiteral("DEP"));
        const QModelIndex category = deps->indexByRecord(record("D1"));
        QCOMPARE(category.data().toString(), QStringLiteral("Местная"));
        QCOMPARE(category.data(Qt::UserRole).toString(), QStringLiteral("D1"));
        QVERIFY(!common->index(0, 0).data(Qt::ToolTipRole).isValid());
        QVERIFY(!deps->indexByRecord(nameless).data().isValid());
        QVERIFY(!category.data(Qt::EditRole).isValid());

        const auto picture = [](const QModelIndex& index) {
            return index.data(Qt::DecorationRole).value<QPixmap>();
        };
        const QModelIndex item = deps->indexByRecord(record("TD"));
        const QModelIndex fresh = deps->indexByRecord(record("NEW_T"));
        QCOMPARE(picture(root).size(), QSize(20, 20));
        QCOMPARE(picture(root).toImage(), picture(category).toImage());
        QVERIFY(picture(item).toImage() != picture(category).toImage());
        QVERIFY(picture(fresh).toImage() != picture(item).toImage());
    }

    void flagsTellWhatCanBeDone()
    {
        add(&m_tables->categoriesEdit, "NEW_C", QStringLiteral("Новая"), {{"ParentKey", "C1"}}, ROW_INSERT);
        add(&m_tables->categoriesEdit, "NEW_O", QStringLiteral("Новая"), {{"OrgTypeKey", "TYPE"}},
            ROW_INSERT);
        const auto readOnly = make<PublicTemplatesEditSourceModel>(false);
        QCOMPARE(int(readOnly->flags(readOnly->index(0, 0))), 33);
        QCOMPARE(int(readOnly->flags(readOnly->indexByRecord(record("T1")))), 33);

        const Qt::ItemFlags base = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
        const Qt::ItemFlags movable = base | Qt::ItemIsDragEnabled | Qt::ItemIsDropEnabled;
        const auto common = make<PublicTemplatesEditSourceModel>();
        QCOMPARE(common->flags(common->index(0, 0)), movable);
        QCOMPARE(common->flags(common->indexByRecord(record("T1"))), movable | Qt::ItemNeverHasChildren);
        QCOMPARE(common->flags(common->indexByRecord(record("NEW_C"))), movable | Qt::ItemNeverHasChildren);
        const auto orgs = make<OrgsTemplatesEditSourceModel>();
        QCOMPARE(orgs->flags(orgs->index(0, 0)), base | Qt::ItemIsDropEnabled);
        QCOMPARE(orgs->flags(orgs->indexByRecord(record("O1"))), movable);
        QCOMPARE(orgs->flags(orgs->indexByRecord(record("NEW_O"))), base);
    }

    void dropsAreTakenWhereTheyMakeSense()
    {
        add(&m_tables->templatesEdit, "NEW_T", QStringLiteral("Новый"), {{"CategoryKey", "C1"}}, ROW_INSERT);
        const auto common = make<PublicTemplatesEditSourceModel>();
        const auto orgs = make<OrgsTemplatesEditSourceModel>();
        QCOMPARE(common->supportedDropActions(), Qt::DropActions(Qt::MoveAction));
        QCOMPARE(common->mimeTypes(), (QStringList{QStringLiteral("application/category/KeyLink"),
                                                   QStringLiteral("application/template/KeyLink")}));
        const QModelIndex c1 = common->indexByRecord(record("C1"));
        const QModelIndex t1 = common->indexByRecord(record("T1"));
        const std::unique_ptr<QMimeData> category(common->mimeData({c1, t1})); // only the first counts
        const std::unique_ptr<QMimeData> item(common->mimeData({t1}));
        const std::unique_ptr<QMimeData> pending(common->mimeData({common->indexByRecord(record("NEW_T"))}));
        const std::unique_ptr<QMimeData> none(common->mimeData({}));
        QCOMPARE(category->formats(), QStringList{QStringLiteral("application/category/KeyLink")});
        QCOMPARE(item->formats(), QStringList{QStringLiteral("application/template/KeyLink")});
        QVERIFY(pending->formats().isEmpty() && none->formats().isEmpty());

        const auto can = [](const TemplatesEditSourceModel& model, const QMimeData* data,
                            const QModelIndex& target, Qt::DropAction action = Qt::MoveAction) {
            return model.canDropMimeData(data, action, -1, -1, target);
        };
        QVERIFY(can(*common, category.get(), QModelIndex()));
        QVERIFY(!can(*common, item.get(), QModelIndex()));
        QVERIFY(can(*common, category.get(), c1)); // on itself: the store refuses it
        QVERIFY(can(*common, item.get(), c1));
        QVERIFY(!can(*common, item.get(), t1));
        QVERIFY(!can(*common, item.get(), c1, Qt::CopyAction));
        QVERIFY(!can(*common, pending.get(), c1));
        QVERIFY(!can(*orgs, category.get(), QModelIndex()));
        QVERIFY(can(*orgs, category.get(), orgs->index(0, 0)));
        QVERIFY(!can(*orgs, item.get(), orgs->index(0, 0))); // templates exist only in categories
        QVERIFY(can(*orgs, item.get(), orgs->indexByRecord(record("O1"))));

        QSignalSpy moves(common.get(), &TemplatesEditSourceModel::moveToCategory);
        QVERIFY(!common->dropMimeData(item.get(), Qt::MoveAction, -1, -1, t1));
        QVERIFY(!common->dropMimeData(none.get(), Qt::MoveAction, -1, -1, c1));
        QVERIFY(common->dropMimeData(category.get(), Qt::MoveAction, -1, -1, QModelIndex()));
        QVERIFY(common->dropMimeData(item.get(), Qt::MoveAction, -1, -1, c1));
        QCOMPARE(moves.size(), 2);
        QCOMPARE(moves.at(1).at(0).toString(), QStringLiteral("T1"));
        QCOMPARE(moves.at(1).at(1).toModelIndex(), c1);
    }

    void theDepartmentTreeTakesNoMove()
    {
        const auto deps = make<DepsTemplatesEditSourceModel>();
        const auto common = make<PublicTemplatesEditSourceModel>();
        QSignalSpy moves(deps.get(), &TemplatesEditSourceModel::moveToCategory);
        QVERIFY(!deps->mimeTypes().contains(QStringLiteral("application/category/KeyLink")));
        const QModelIndex d1 = deps->indexByRecord(record("D1"));
        const std::unique_ptr<QMimeData> own(deps->mimeData({d1}));
        const std::unique_ptr<QMimeData> other(common->mimeData({common->indexByRecord(record("T1"))}));
        for (const QMimeData* data : {own.get(), other.get()})
            for (const QModelIndex& target :
                 {QModelIndex(), deps->index(0, 0), d1, deps->indexByRecord(record("TD"))}) {
                QVERIFY(!deps->canDropMimeData(data, Qt::MoveAction, -1, -1, target));
                deps->dropMimeData(data, Qt::MoveAction, -1, -1, target);
            }
        QVERIFY(moves.isEmpty());
        QCOMPARE(rows(*deps), (QStringList{QStringLiteral("DEP"), QStringLiteral("DEP_EMPTY")}));
        QCOMPARE(rows(*deps, d1), QStringList{QStringLiteral("D1A")});
    }

    void lostAndLoopedRecordsAreNotShown()
    {
        MDRData* lost = add(&m_tables->categories, "LOST", QStringLiteral("Сирота"), {{"ParentKey", "GONE"}});
        MDRData* a = add(&m_tables->categories, "A", QStringLiteral("А"), {{"ParentKey", "B"}});
        add(&m_tables->categories, "B", QStringLiteral("Б"), {{"ParentKey", "A"}});
        const auto model = make<PublicTemplatesEditSourceModel>();
        QVERIFY(!model->indexByRecord(lost).isValid());
        QVERIFY(!model->indexByRecord(a).isValid());
        QVERIFY(!model->indexByRecord(nullptr).isValid());
        CMDArray foreign;
        MDACreate(&foreign.array, 0);
        MDRData* stranger = MDARecNew(foreign.array);
        QVERIFY(!model->indexByRecord(stranger).isValid());
        MDARecDel(stranger);
        QVERIFY(!model->indexByRecord(stranger).isValid());
    }

    void bracketsAreThoseOfTheBaseClass()
    {
        const auto model = make<PublicTemplatesEditSourceModel>();
        QSignalSpy moved(model.get(), &QAbstractItemModel::rowsMoved);
        QSignalSpy changed(model.get(), &QAbstractItemModel::dataChanged);
        QSignalSpy inserted(model.get(), &QAbstractItemModel::rowsInserted);
        model->updateRecord(record("T1"));
        QCOMPARE(changed.size(), 1);
        QCOMPARE(changed.at(0).at(0).toModelIndex(), model->indexByRecord(record("T1")));
        QCOMPARE(changed.at(0).at(2).value<QVector<int>>(),
                 (QVector<int>{Qt::DisplayRole, Qt::DecorationRole}));
        model->updateView();
        QCOMPARE(changed.size(), 2);
        QVERIFY(!changed.at(1).at(0).toModelIndex().isValid());
        model->updateRecord(record("O1")); // not in this tree
        QCOMPARE(changed.size(), 2);
        model->beginAppendRow(model->index(1, 0));
        add(&m_tables->templates, "T3", QStringLiteral("Ещё"), {{"CategoryKey", "C1"}});
        model->endAppendRow();
        QCOMPARE(inserted.at(0).at(1).toInt(), 3);
        model->beginMoveRow(QModelIndex(), 0, 1);
        model->endMoveRow();
        QCOMPARE(moved.at(0).at(4).toInt(), 2);
        QSignalSpy resets(model.get(), &QAbstractItemModel::modelReset);
        model->resetModel();
        QCOMPARE(resets.size(), 1);
    }

    void theProxySortsAndFilters()
    {
        add(&m_tables->categories, "C1B", QStringLiteral("Ящик"), {{"ParentKey", "C1"}});
        const auto model = make<PublicTemplatesEditSourceModel>();
        TemplatesProxyModel proxy;
        QVERIFY(!proxy.isReadyData());
        proxy.setDynamicSortFilter(true);
        proxy.setCatsTemplateTable(&m_tables->categories);
        proxy.setCatsTemplateEdit(&m_tables->categoriesEdit);
        proxy.setTemplatesTable(&m_tables->templates);
        proxy.setTemplatesEdit(&m_tables->templatesEdit);
        QVERIFY(proxy.isReadyData());
        proxy.setSourceModel(model.get());
        proxy.sort(0);
        QAbstractItemModelTester tester(&proxy, QAbstractItemModelTester::FailureReportingMode::Fatal);
        const auto names = [&proxy](const QModelIndex& parent) {
            QStringList lines;
            for (int i = 0; i < proxy.rowCount(parent); ++i)
                lines << proxy.index(i, 0, parent).data().toString();
            return lines.join(QLatin1Char(' '));
        };
        QCOMPARE(names(QModelIndex()), QStringLiteral("Вторая Первая"));
        const QModelIndex c1 = proxy.mapFromSource(model->indexByRecord(record("C1")));
        QCOMPARE(names(c1), QStringLiteral("Внутри Ящик Другой Шаблон")); // categories come first
        QVERIFY(proxy.isCategory(model->indexByRecord(record("C1A"))));
        QVERIFY(proxy.isTemplate(model->indexByRecord(record("T1"))));
        QVERIFY(!proxy.isTemplate(QModelIndex()));
        proxy.setFilterRoot(QStringLiteral("C1"));
        QCOMPARE(names(QModelIndex()), QStringLiteral("Первая"));
        QCOMPARE(proxy.rowCount(proxy.index(0, 0)), 4); // the lower levels are not filtered
        proxy.setFilterRoot(QString());
        QCOMPARE(names(QModelIndex()), QStringLiteral("Вторая Первая"));
    }
};

QTEST_MAIN(TemplatesEditSourceModel_test)
#include "TemplatesEditSourceModel_test.moc"
