#include "CVrkToolObject.h"

CVrkToolObject::CVrkToolObject(CVrkCliMod* module) : m_module(module) {}

CVrkToolObject::~CVrkToolObject() = default;
