#include "ConfiguratorBench.h"

#include <QAbstractItemModelTester>
#include <QCheckBox>
#include <QMimeData>
#include <random>

/// Two configurators on one store, and another writer, perform random actions. After every step each tree
/// is compared with one computed from the arrays by simple loops, and sometimes with the store.
class TemplateTree_random_test : public QObject
{
    Q_OBJECT

private:
    struct Level {
        const char* scopeField;
        const char* roots; ///< select of the keys of the root rows; null without them
    };

    std::mt19937 m_random;
    std::unique_ptr<TestStore> m_store;
    std::vector<std::unique_ptr<Configurator>> m_users;
    std::unique_ptr<Store> m_loader;
    QStringList m_history;
    bool m_isFailing = false;
    QString m_failing; ///< the table that refuses everything

    int pick(int count)
    {
        return count > 0 ? static_cast<int>(m_random() % static_cast<unsigned>(count)) : 0;
    }

    static QByteArray text(const MDRData* record, const char* field)
    {
        return MDRValue::copy(Row(record).value(field));
    }
    static bool isNull(const MDRData* record, const char* field)
    {
        const MDRVar value = Row(record).value(field);
        return value.isNull || value.type == mdr_TNone;
    }
    static std::vector<MDRData*> all(const CModelTable& table, bool onlyNew)
    {
        std::vector<MDRData*> records;
        for (int i = 0; i < table.data.RecCount(); ++i) {
            MDRData* record = MDARec(table.data.array, 0, i);
            if (!onlyNew || (record->flags & ROW_INSERT))
                records.push_back(record);
        }
        return records;
    }

    static Level levelOf(const TemplateTab* page)
    {
        if (page->objectName() == QLatin1String("publicTemplates"))
            return {nullptr, nullptr};
        if (page->objectName() == QLatin1String("orgsTemplates"))
            return {"OrgTypeKey", "SELECT KeyLink FROM OrgTypes"};
        return {"DepartmentKey", "SELECT KeyLink FROM Departments"};
    }

    /// The tree from the arrays, only by loops; a row is its indent and its key.
    static void addFolder(const TemplateTab* page, const QByteArray& key, const char* field,
                          bool withTemplates, const QString& indent, QStringList* lines)
    {
        const TemplateTables& tables = page->tables();
        const bool pendingHasRows = !levelOf(page).scopeField;
        for (bool isNew : {false, true})
            for (MDRData* category : all(isNew ? tables.categoriesEdit : tables.categories, isNew)) {
                const bool isTop =
                    key.isEmpty() && isNull(category, "ParentKey") &&
                    (isNew || (isNull(category, "OrgTypeKey") && isNull(category, "DepartmentKey")));
                if (!isTop && (key.isEmpty() || text(category, field) != key))
                    continue;
                lines->append(indent + QString::fromUtf8(text(category, "KeyLink")));
                if (!isNew || pendingHasRows)
                    addFolder(page, text(category, "KeyLink"), "ParentKey", true, indent + QLatin1Char(' '),
                              lines);
            }
        if (!withTemplates)
            return;
        for (bool isNew : {false, true})
            for (MDRData* one : all(isNew ? tables.templatesEdit : tables.templates, isNew))
                if (text(one, "CategoryKey") == key)
                    lines->append(indent + QString::fromUtf8(text(one, "KeyLink")));
    }
    QStringList afresh(const TemplateTab* page) const
    {
        QStringList lines;
        const Level level = levelOf(page);
        if (!level.scopeField) {
            addFolder(page, QByteArray(), "ParentKey", false, QString(), &lines);
            return lines;
        }
        for (int i = 0; i < page->model()->rowCount(); ++i) {
            const QString root = page->model()->index(i, 0).data(Qt::UserRole).toString();
            lines << root;
            addFolder(page, root.toUtf8(), level.scopeField, false, QStringLiteral(" "), &lines);
        }
        return lines;
    }
    static void listModel(const QAbstractItemModel* model, const QModelIndex& parent, const QString& indent,
                          QStringList* lines)
    {
        for (int i = 0; i < model->rowCount(parent); ++i) {
            const QModelIndex index = model->index(i, 0, parent);
            lines->append(indent + index.data(Qt::UserRole).toString());
            listModel(model, index, indent + QLatin1Char(' '), lines);
        }
    }
    static QStringList listed(const QAbstractItemModel* model)
    {
        QStringList lines;
        listModel(model, QModelIndex(), QString(), &lines);
        return lines;
    }
    static QStringList sorted(QStringList lines)
    {
        lines.sort();
        return lines;
    }
    static void checkOrder(const QAbstractItemModel* proxy, const QModelIndex& parent)
    {
        const auto* both = qobject_cast<const TemplatesProxyModel*>(proxy);
        for (int i = 0; i < proxy->rowCount(parent); ++i) {
            const QModelIndex index = proxy->index(i, 0, parent);
            checkOrder(proxy, index);
            if (i == 0)
                continue;
            const QModelIndex before = proxy->index(i - 1, 0, parent);
            const bool beforeIsTemplate = both->isTemplate(both->mapToSource(before));
            const bool isTemplate = both->isTemplate(both->mapToSource(index));
            QVERIFY(!beforeIsTemplate || isTemplate);
            if (beforeIsTemplate == isTemplate)
                QVERIFY(before.data().toString() <= index.data().toString());
        }
    }
    void compare(const TemplateTab* page)
    {
        const QStringList expected = afresh(page);
        QCOMPARE(listed(page->model()), expected);
        QCOMPARE(sorted(listed(page->proxy())), sorted(expected));
        checkOrder(page->proxy(), QModelIndex());
        // The passport shows the current record.
        const MDRData* current = page->currentRecord();
        const QModelIndex back = page->model()->indexByRecord(current);
        QCOMPARE(back, page->proxy()->mapToSource(Configurator::tree(page)->currentIndex()));
    }

    /// The keys of a page in the store, by loops over its rows.
    QStringList stored(const TemplateTab* page) const
    {
        const Level level = levelOf(page);
        const auto categories = m_store->rows(
            QStringLiteral("SELECT KeyLink, ParentKey, OrgTypeKey, DepartmentKey FROM LogbookCatsTemplate"));
        const auto templates =
            m_store->rows(QStringLiteral("SELECT KeyLink, CategoryKey FROM LogbookTemplates"));
        QStringList keys;
        QStringList folders;
        if (level.roots)
            for (const QVariantList& root : m_store->rows(QLatin1String(level.roots)))
                keys << root.first().toString();
        const int scope = !level.scopeField ? 0 : (qstrcmp(level.scopeField, "OrgTypeKey") == 0 ? 2 : 3);
        for (const QVariantList& row : categories) {
            const bool isTop = row.at(1).isNull() && (scope > 0 ? !row.at(scope).isNull()
                                                                : row.at(2).isNull() && row.at(3).isNull());
            if (isTop)
                folders << row.first().toString();
        }
        for (int i = 0; i < folders.size(); ++i)
            for (const QVariantList& row : categories)
                if (row.at(1).toString() == folders.at(i))
                    folders << row.first().toString();
        keys << folders;
        for (const QVariantList& row : templates)
            if (folders.contains(row.at(1).toString()))
                keys << row.first().toString();
        return sorted(keys);
    }
    static QStringList keysOf(const TemplateTab* page)
    {
        QStringList keys;
        for (const QString& line : listed(page->model()))
            keys << line.trimmed();
        return sorted(keys);
    }

    void selectAny(TemplateTab* page)
    {
        QModelIndexList rows = page->proxy()->match(page->proxy()->index(0, 0), Qt::DisplayRole, QString(),
                                                    -1, Qt::MatchContains | Qt::MatchRecursive);
        if (!rows.isEmpty())
            Configurator::tree(page)->setCurrentIndex(rows.at(pick(rows.size())));
    }
    void dropAny(TemplateTab* page)
    {
        TemplatesEditSourceModel* model = page->model();
        const QModelIndex moved = model->indexByRecord(page->currentRecord());
        selectAny(page);
        const QModelIndex target = pick(8) == 0 ? QModelIndex() : model->indexByRecord(page->currentRecord());
        if (!moved.isValid())
            return;
        const std::unique_ptr<QMimeData> mime(model->mimeData({moved}));
        if (model->canDropMimeData(mime.get(), Qt::MoveAction, -1, -1, target))
            model->dropMimeData(mime.get(), Qt::MoveAction, -1, -1, target);
    }
    void writeOutside()
    {
        const auto rows = m_store->rows(QStringLiteral("SELECT KeyLink, ParentKey FROM LogbookCatsTemplate "
                                                       "WHERE OrgTypeKey IS NULL AND DepartmentKey IS NULL"));
        const auto templates = m_store->rows(QStringLiteral("SELECT KeyLink FROM LogbookTemplates"));
        if (rows.isEmpty() || templates.isEmpty())
            return;
        const QByteArray key = rows.at(pick(rows.size())).first().toByteArray();
        const QByteArray other = templates.at(pick(templates.size())).first().toByteArray();
        switch (pick(3)) {
        case 0: // among its siblings
            for (const QVariantList& row : rows)
                if (row.first().toByteArray() == key && !row.at(1).isNull()) {
                    const QString above =
                        m_store
                            ->value(QStringLiteral("SELECT ParentKey FROM LogbookCatsTemplate "
                                                   "WHERE KeyLink = '%1'")
                                        .arg(row.at(1).toString()))
                            .toString();
                    if (!above.isEmpty())
                        TestStore::write(m_loader.get(), "LogbookCatsTemplate", ROW_UPDATE, key,
                                         {{"ParentKey", above}});
                }
            break;
        case 1:
            TestStore::write(m_loader.get(), "LogbookTemplates", ROW_UPDATE, other, {{"nameLoc", "Извне"}});
            break;
        default:
            TestStore::write(m_loader.get(), "LogbookTemplates", ROW_DELETE, other);
        }
    }
    void switchFailure()
    {
        m_isFailing = !m_isFailing;
        if (m_isFailing)
            m_failing = pick(2) ? QStringLiteral("LogbookTemplates") : QStringLiteral("LogbookCatsTemplate");
        for (const char* operation : {"INSERT", "UPDATE", "DELETE"})
            QCOMPARE(m_isFailing ? m_store->refuse(QLatin1String(operation), m_failing)
                                 : m_store->permit(QLatin1String(operation), m_failing),
                     QString());
    }

    void step()
    {
        Configurator& user = *m_users[static_cast<std::size_t>(pick(static_cast<int>(m_users.size())))];
        TemplateTab* page = user.window().currentTab();
        const int what = pick(30);
        m_history << QStringLiteral("%1 on %2, %3")
                         .arg(what)
                         .arg(page->objectName(), Configurator::currentKey(page));
        const bool isCategory = Configurator::passport(page) == 1;
        const bool isTemplate = Configurator::passport(page) == 2;
        if (user.box()) {
            user.answer(user.box()->type() == MessageTypeYesNo ? (pick(4) ? "yesButton" : "noButton")
                                                               : "okButton");
            return;
        }
        switch (what) {
        case 0:
        case 1:
            if (!page->isExistUnsaved())
                user.pages()->setCurrentIndex(pick(3));
            break;
        case 2:
        case 3:
        case 4:
        case 5:
            selectAny(page);
            break;
        case 6:
        case 7:
        case 8:
            if (isCategory)
                Configurator::in<QLineEdit>(page, "categoryNameEdit")
                    ->setText(pick(12) ? QStringLiteral("Категория %1").arg(pick(50)) : QString());
            if (isTemplate)
                Configurator::in<QLineEdit>(page, "templateNameEdit")
                    ->setText(pick(12) ? QStringLiteral("Шаблон %1").arg(pick(50)) : QString());
            break;
        case 9:
        case 10:
            if (isTemplate)
                Configurator::in<QCheckBox>(page, "templateOpenBox")->click();
            break;
        case 11:
            if (page->isRootCreatable())
                page->createRootFolder();
            break;
        case 12:
        case 13:
            if (page->isFolderCreatable())
                page->createFolder();
            break;
        case 14:
        case 15:
            if (page->isTemplateCreatable()) {
                page->createTemplate();
                Configurator::in<QCheckBox>(page, "templateCloseBox")->click();
            }
            break;
        case 16:
        case 17:
        case 18:
            page->applyChanges();
            break;
        case 19:
            page->cancelChanges();
            break;
        case 20: // the key checks only the level
            QTest::keyClick(page, Qt::Key_Delete);
            break;
        case 21:
            QTest::keyClick(page, Qt::Key_C, Qt::ControlModifier);
            selectAny(page);
            QTest::keyClick(page, Qt::Key_V, Qt::ControlModifier);
            break;
        case 22:
        case 23:
            dropAny(page);
            break;
        case 24:
            if (pick(6) == 0 || m_isFailing)
                switchFailure();
            break;
        case 25:
            writeOutside();
            break;
        case 26:
            if (auto* restore = Configurator::in<QAbstractButton>(page, "restoreButton"))
                if (restore->isVisible())
                    restore->click();
            break;
        case 27:
            Configurator::tree(page)->expandAll();
            break;
        default:
            QCoreApplication::processEvents();
            user.deliver();
        }
    }

private slots:
    void treesStayInStepWithTheArraysAndTheStore()
    {
        LogWatch log; // refused writes leave lines there, as expected
        m_random.seed(qEnvironmentVariableIsSet("VRK_SEED") ? qEnvironmentVariableIntValue("VRK_SEED")
                                                            : 20261120);
        const int steps = qEnvironmentVariableIsSet("VRK_LONG") ? 10000 : 2000;
        m_store = std::make_unique<TestStore>();
        m_loader = m_store->openLoader();
        std::vector<std::unique_ptr<QAbstractItemModelTester>> testers;
        for (int i = 0; i < 2; ++i) {
            m_users.push_back(std::make_unique<Configurator>(*m_store));
            Configurator& user = *m_users.back();
            QVERIFY(user.isStarted());
            for (TemplateTab* page : {user.common(), user.orgs(), user.deps()}) {
                Configurator::tree(page)->setAnimated(false);
                for (QAbstractItemModel* model :
                     std::initializer_list<QAbstractItemModel*>{page->model(), page->proxy()})
                    testers.push_back(std::make_unique<QAbstractItemModelTester>(
                        model, QAbstractItemModelTester::FailureReportingMode::Fatal));
            }
        }

        int comparisons = 0;
        for (int i = 0; i < steps; ++i) {
            step();
            QCoreApplication::processEvents(); // the event loop runs between two actions of a user
            for (const auto& user : m_users)
                for (TemplateTab* page : {user->common(), user->orgs(), user->deps()})
                    compare(page);
            const QStringList complaints = log.take(QStringLiteral("QAbstractItemModel"));
            if (!complaints.isEmpty() || QTest::currentTestFailed())
                QFAIL(qPrintable(QStringLiteral("after step %1: %2\n%3")
                                     .arg(i)
                                     .arg(complaints.join(QLatin1Char('\n')),
                                          m_history.mid(m_history.size() - 12).join(QLatin1Char('\n')))));
            if (i % 40 != 39)
                continue;
            if (m_isFailing)
                switchFailure();
            for (const auto& user : m_users) {
                while (user->box())
                    user->answer(user->box()->type() == MessageTypeYesNo ? "noButton" : "okButton");
                QCoreApplication::processEvents();
                user->deliver();
                for (TemplateTab* page : {user->common(), user->orgs(), user->deps()}) {
                    page->cancelChanges();
                    compare(page);
                    QCOMPARE(keysOf(page), stored(page));
                    ++comparisons;
                }
            }
        }
        QCOMPARE(comparisons, steps / 40 * 6);
        testers.clear();
        m_users.clear();
    }
};

QTEST_MAIN(TemplateTree_random_test)
#include "TemplateTree_random_test.moc"
