// What the system asks of a library of classes.

STDAPI DllCanUnloadNow() {
    return S_OK;
}

STDAPI DllGetClassObject(REFCLSID, REFIID, void** object) {
    if (!object)
        return E_POINTER;
    *object = nullptr;
    return CLASS_E_CLASSNOTAVAILABLE;
}
