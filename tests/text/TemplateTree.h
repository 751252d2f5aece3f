#pragma once

#include "CModelTable.h"
#include "LogbookFields.h"
#include "MDRValues.h"
#include "TemplatesWidget.h"

#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QTextCodec>
#include <QTreeView>

inline const MDRFieldDescr NamedFields[] = {{"KeyLink", 32, mdr_TChar}, {"name_", 100, mdr_TChar}};

/// The tables of a tree, to be filled row by row.
class Tables
{
public:
    Tables()
        : categories("LogbookCatsTemplate"),
          templates("LogbookTemplates"),
          departments("Departments"),
          types("OrgTypes")
    {
        MDAFldAdd(categories.data.array, fieldCount(LogbookCatsTemplateFields), LogbookCatsTemplateFields);
        MDAFldAdd(templates.data.array, fieldCount(LogbookTemplatesFields), LogbookTemplatesFields);
        MDAFldAdd(departments.data.array, 2, NamedFields);
        MDAFldAdd(types.data.array, 2, NamedFields);
        for (CModelTable* table : {&categories, &templates, &departments, &types})
            table->data.KeyAdd("", 0);
        add(departments, {{"KeyLink", QStringLiteral("DEP")}, {"name_", QStringLiteral("ЦДС")}});
        add(types, {{"KeyLink", QStringLiteral("TYPE")}, {"name_", QStringLiteral("Диспетчерский центр")}});
    }

    using Fields = std::initializer_list<std::pair<const char*, QString>>;
    MDRData* add(CModelTable& table, Fields fields)
    {
        MDRData* record = MDARecNew(table.data.array);
        for (const auto& [name, text] : fields)
            set(table, record, name, text);
        return table.data.RecPost(record);
    }
    void set(CModelTable& table, MDRData* record, const char* name, const QString& text)
    {
        const QByteArray bytes = codec->fromUnicode(text);
        const MDRVar value = MDRValue::text(bytes, mdr_TMemo);
        MDRSetVal(MDRFldByName(table.data.array, name), record, &value);
    }
    void category(const char* key, const char* name, const char* levelField = nullptr,
                  const char* level = nullptr)
    {
        MDRData* record =
            add(categories, {{"KeyLink", QLatin1String(key)}, {"nameLoc", QString::fromUtf8(name)}});
        if (levelField)
            set(categories, record, levelField, QLatin1String(level));
    }
    MDRData* templateRow(const char* key, const char* category, const char* name,
                         const QString& html = QStringLiteral("text"))
    {
        return add(templates, {{"KeyLink", QLatin1String(key)},
                               {"CategoryKey", QLatin1String(category)},
                               {"nameLoc", QString::fromUtf8(name)},
                               {"html", html}});
    }

    QTextCodec* codec = QTextCodec::codecForName("Windows-1251");
    CModelTable categories;
    CModelTable templates;
    CModelTable departments;
    CModelTable types;
};

/// A widget over a small tree of all three levels.
class Tree : public Tables
{
public:
    Tree()
    {
        category("COMMON", "Переключения");
        category("SUB", "Бланки", "ParentKey", "COMMON");
        category("OFTYPE", "Режим", "OrgTypeKey", "TYPE");
        category("OFDEP", "Районные", "DepartmentKey", "DEP");
        category("OTHERDEP", "Чужие", "DepartmentKey", "DEP2");
        category("OTHERTYPE", "Чужой тип", "OrgTypeKey", "TYPE2");
        category("VOID", "Пустая");
        templateRow("T_ORDER", "COMMON", "Команда на производство переключений");
        templateRow("T_LINE", "COMMON", "Включение линии");
        templateRow("T_SHEET", "SUB", "Бланк переключений");
        templateRow("T_FLOW", "OFTYPE", "Изменение перетока");
        templateRow("T_FLOOD", "OFDEP", "Паводок: приём сообщения");
        templateRow("T_ALIEN", "OTHERDEP", "Чужой шаблон");
        templateRow("T_ALIEN2", "OTHERTYPE", "Чужого типа");

        widget.setTextCodec(codec);
        widget.setCatsTemplateTable(&categories);
        widget.setTemplatesTable(&templates);
        widget.setDepartmentsTable(&departments);
        widget.setOrgTypesTable(&types);
        widget.setRootDepKeyLink(QStringLiteral("DEP"));
        widget.setRootOrgKeyLink(QStringLiteral("TYPE"));
        widget.resize(360, 480);
    }
    void show()
    {
        widget.show();
        QVERIFY(QTest::qWaitForWindowExposed(&widget));
        widget.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&widget));
    }

    QTreeView* view() { return widget.findChild<QTreeView*>(QStringLiteral("templatesTree")); }
    QLineEdit* search() { return widget.findChild<QLineEdit*>(QStringLiteral("searchEdit")); }
    QLabel* emptyLabel() { return widget.findChild<QLabel*>(QStringLiteral("emptyLabel")); }
    QString current() { return view()->currentIndex().data().toString(); }

    /// All shown rows, indented by one dot for each level.
    QStringList rows(const QModelIndex& parent = QModelIndex(), int depth = 0)
    {
        QStringList result;
        const QAbstractItemModel* model = view()->model();
        for (int row = 0; row < model->rowCount(parent); ++row) {
            const QModelIndex index = model->index(row, 0, parent);
            result << QString(depth, u'.') + index.data().toString() << rows(index, depth + 1);
        }
        return result;
    }
    QModelIndex find(const QString& name)
    {
        const QAbstractItemModel* model = view()->model();
        const QModelIndexList found =
            model->match(model->index(0, 0), Qt::DisplayRole, name, 1, Qt::MatchExactly | Qt::MatchRecursive);
        return found.value(0);
    }
    void click(const QString& name)
    {
        const QModelIndex index = find(name);
        QVERIFY(index.isValid());
        view()->scrollTo(index);
        QTest::mouseClick(view()->viewport(), Qt::LeftButton, Qt::NoModifier,
                          view()->visualRect(index).center());
    }

    TemplatesWidget widget;
};

inline QStringList lines(const char* text)
{
    return QString::fromUtf8(text).split(u'|');
}
