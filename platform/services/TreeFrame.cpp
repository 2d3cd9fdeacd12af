#include "host/frame/ITreeWrapper.h"
#include "host/frame/TreeModelId.h"

namespace {

unsigned long s_lastTreeId = 0;

} // namespace

TreeModelId::TreeModelId() : m_value(++s_lastTreeId) {}

TreeWrapperRegistrar::Factories& TreeWrapperRegistrar::Get() {
    static Factories factories;
    return factories;
}
