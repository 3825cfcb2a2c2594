#include "platform/SetResourceInstance.h"

SetResourceInstance::SetResourceInstance(HINSTANCE module) : mSaved(AfxGetResourceHandle()) {
  AfxSetResourceHandle(module);
}

SetResourceInstance::~SetResourceInstance() { AfxSetResourceHandle(mSaved); }
