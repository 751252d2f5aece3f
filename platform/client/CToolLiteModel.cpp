#include "CToolLiteModel.h"

#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "Fields.h"

CToolLiteModel::CToolLiteModel(CVrkCliMod* module) : CVrkToolObject(module)
{
    setObjectName(QStringLiteral("LiteModel"));
}

CToolLiteModel::~CToolLiteModel()
{
    if (m_model)
        m_model->Clear();
    delete m_model;
}

int CToolLiteModel::Perform(bool)
{
    CVrkCliSes* session = m_module ? m_module->session() : nullptr;
    if (!session)
        return Failed;
    if (!m_model)
        m_model = new CLiteModel;
    m_loaded.clear();

    for (const QString& name : qAsConst(m_names)) {
        MDArray* answer =
            session->SqlRequest(QStringLiteral("SELECT * FROM %1;").arg(name).toUtf8().constData());
        if (!answer)
            continue;
        auto table = std::make_unique<CModelTable>(name.toStdString());
        CMDArray& rows = table->data;
        rows = answer;
        rows.setKeys({Field::KeyLink});
        if (table->name == "Tables")
            rows.KeyAdd(Field::nameLat, 0);
        m_loaded.insert(table->name);
        m_model->add(std::move(table));
    }
    return Done;
}
