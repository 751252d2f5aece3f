#include "TemplatePageRules.h"

#include "MadeTable.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QTest>

/// The rules without a page, a tree or a store.
class TemplatePageRules_test : public QObject
{
    Q_OBJECT

private:
    struct Page : TemplatePageRules {
        Page(const TemplateLevel& level, Rights::AdminRights rights)
        {
            m_level = &level;
            m_rights = rights;
            m_orgTypesTable = &orgTypes;
            m_departmentsTable = &departments;
        }
        MDRData* currentRecord() const override { return record; }
        static MDRData* rowOf(CModelTable& table) { return table.data.RecPost(MDARecNew(table.data.array)); }
        /// Makes a fresh row of this kind current.
        Page& at(CModelTable& table)
        {
            record = rowOf(table);
            return *this;
        }
        CModelTable& category() { return m_tables.categories; }
        CModelTable& item() { return m_tables.templates; }
        CModelTable& unsaved() { return m_tables.templatesEdit; }
        /// The allowed actions.
        QString allowed() const
        {
            const std::pair<const char*, bool> rules[] = {
                {"root ", isRootCreatable()},         {"folder ", isFolderCreatable()},
                {"template ", isTemplateCreatable()}, {"delete ", isItemDeletable()},
                {"copy ", canCopyCurrent()},          {"paste ", canPasteHere()}};
            QString names;
            for (const auto& [name, isAllowed] : rules)
                if (isAllowed)
                    names += QLatin1String(name);
            return names.trimmed();
        }

        MadeTable orgTypes{"OrgTypes", MadeOrganizationFields, "KeyLink"};
        MadeTable departments{"Departments", MadeOrganizationFields, "KeyLink"};
        MDRData* record = nullptr;
    };

private slots:
    void init()
    {
        auto* copied = new QMimeData;
        copied->setData(QStringLiteral("logbook_template"), "KEY");
        QGuiApplication::clipboard()->setMimeData(copied);
    }

    void onlyAdministratorsChangeCommonTemplates()
    {
        Page page(TemplateLevels::publicLevel, Rights::Admin);
        QCOMPARE(page.allowed(), QStringLiteral("root"));
        QCOMPARE(page.at(page.category()).allowed(), QStringLiteral("root folder template delete paste"));
        QCOMPARE(page.at(page.item()).allowed(), QStringLiteral("root folder template delete copy paste"));
        Page local(TemplateLevels::publicLevel, Rights::LocalAdmin);
        QCOMPARE(local.at(local.item()).allowed(), QStringLiteral("copy"));
        Page viewed(TemplateLevels::publicLevel, Rights::View);
        QCOMPARE(viewed.at(viewed.item()).allowed(), QString());
    }

    void rootRowsContainOnlyFolders()
    {
        Page page(TemplateLevels::orgsLevel, Rights::Admin);
        QCOMPARE(page.allowed(), QString());
        QCOMPARE(page.at(page.orgTypes).allowed(), QStringLiteral("folder"));
        QCOMPARE(page.at(page.category()).allowed(), QStringLiteral("folder template delete paste"));
        Page local(TemplateLevels::orgsLevel, Rights::LocalAdmin);
        QCOMPARE(local.at(local.category()).allowed(), QString());
    }

    void localAdministratorChangesDepartments()
    {
        for (const Rights::AdminRights rights : {Rights::LocalAdmin, Rights::Admin}) {
            Page page(TemplateLevels::depsLevel, rights);
            QCOMPARE(page.at(page.departments).allowed(), QStringLiteral("folder"));
            QCOMPARE(page.at(page.item()).allowed(), QStringLiteral("folder template delete copy paste"));
        }
        Page viewed(TemplateLevels::depsLevel, Rights::View);
        QCOMPARE(viewed.at(viewed.category()).allowed(), QString());
    }

    void unsavedRecordsStopCreatingAndDeleting()
    {
        Page page(TemplateLevels::publicLevel, Rights::Admin);
        page.at(page.category());
        QVERIFY(!page.isExistUnsaved());
        Page::rowOf(page.unsaved());
        QVERIFY(page.isExistUnsaved());
        QCOMPARE(page.allowed(), QStringLiteral("paste"));
    }

    void pastingNeedsACopiedTemplate()
    {
        Page page(TemplateLevels::publicLevel, Rights::Admin);
        page.at(page.category());
        QVERIFY(page.canPasteHere());
        QGuiApplication::clipboard()->clear();
        QVERIFY(!page.canPasteHere());
    }
};

QTEST_MAIN(TemplatePageRules_test)
#include "TemplatePageRules_test.moc"
