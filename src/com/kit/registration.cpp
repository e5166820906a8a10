// What a server writes into the registry, and takes back: its type library with the interfaces that the system marshals
// by it, and its classes. Everything lies below one "Software\Classes", the machine's or the user's, and is written
// directly, so that both are done alike.
#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "com/kit/bstr.h"
#include "com/kit/module.h"
#include "com/kit/server.h"
#include "win/registry.h"

namespace telvar::com {

namespace {

// The system's marshaller for automation interfaces, and the one for event interfaces.
constexpr std::wstring_view dualMarshaller = L"{00020424-0000-0000-C000-000000000046}";
constexpr std::wstring_view dispatchMarshaller = L"{00020420-0000-0000-C000-000000000046}";

constexpr std::array<std::wstring_view, 2> safeCategories{
    L"{7DD95801-9882-11CF-9FA9-00AA006C42C4}",   // safe for scripting
    L"{7DD95802-9882-11CF-9FA9-00AA006C42C4}"};  // safe for initialising
constexpr std::wstring_view controlCategory = L"{40FC6ED4-2438-11CF-A3DB-080036F12502}";
constexpr std::wstring_view programmableCategory = L"{40FC6ED5-2438-11CF-A3DB-080036F12502}";

#ifdef _WIN64
constexpr const wchar_t* platformKey = L"win64";
#else
constexpr const wchar_t* platformKey = L"win32";
#endif

[[nodiscard]] std::wstring textOf(REFGUID id) {
    std::array<wchar_t, 40> text{};
    StringFromGUID2(id, text.data(), static_cast<int>(text.size()));
    return text.data();
}

[[nodiscard]] win::RegistryKey classesOf(RegisterFor whom) {
    const auto root = win::RegistryKey::root(whom == RegisterFor::User ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE);
    return root.create(LR"(Software\Classes)");
}

[[nodiscard]] std::wstring versionText(const Server& server) {
    // Version numbers in the registry are hexadecimal; ours stay below ten.
    return std::to_wstring(server.libraryMajor) + L"." + std::to_wstring(server.libraryMinor);
}

struct MarshalledInterface {
    IID id{};
    std::wstring name;
    std::wstring_view marshaller;
};

// The library's own interfaces; those that other libraries lend it are theirs to register.
[[nodiscard]] std::vector<MarshalledInterface> interfacesOf(ITypeLib& library) {
    std::vector<MarshalledInterface> found;
    for (UINT at = 0; at < library.GetTypeInfoCount(); ++at) {
        ComPointer<ITypeInfo> info;
        TYPEATTR* attributes = nullptr;
        check(library.GetTypeInfo(at, info.put()));
        check(info->GetTypeAttr(&attributes));
        const TYPEATTR copy = *attributes;
        info->ReleaseTypeAttr(attributes);
        if (copy.typekind != TKIND_DISPATCH && copy.typekind != TKIND_INTERFACE) {
            continue;
        }
        Bstr name;
        check(info->GetDocumentation(MEMBERID_NIL, name.put(), nullptr, nullptr, nullptr));
        const bool dual = (copy.wTypeFlags & (TYPEFLAG_FDUAL | TYPEFLAG_FOLEAUTOMATION)) != 0;
        found.push_back({copy.guid, std::wstring(name.view()), dual ? dualMarshaller : dispatchMarshaller});
    }
    return found;
}

[[nodiscard]] std::wstring folderOf(const std::wstring& path) { return path.substr(0, path.find_last_of(L'\\')); }

void writeLibrary(const win::RegistryKey& classes, const Server& server, ITypeLib& library) {
    Bstr name;
    Bstr description;
    check(library.GetDocumentation(MEMBERID_NIL, name.put(), description.put(), nullptr, nullptr));
    const std::wstring path = module::path();
    const win::RegistryKey version =
        classes.create(LR"(TypeLib\)" + textOf(server.libraryId) + L"\\" + versionText(server));
    version.set(L"", std::wstring(description.view().empty() ? name.view() : description.view()));
    version.create(std::wstring(LR"(0\)") + platformKey).set(L"", path);
    version.create(L"FLAGS").set(L"", L"0");
    version.create(L"HELPDIR").set(L"", folderOf(path));

    for (const auto& marshalled : interfacesOf(library)) {
        const win::RegistryKey key = classes.create(LR"(Interface\)" + textOf(marshalled.id));
        key.set(L"", marshalled.name);
        key.create(L"ProxyStubClsid32").set(L"", std::wstring(marshalled.marshaller));
        const win::RegistryKey from = key.create(L"TypeLib");
        from.set(L"", textOf(server.libraryId));
        from.set(L"Version", versionText(server));
    }
}

// The other word size may share the library's entry; only what is this DLL's goes.
void removeLibrary(const win::RegistryKey& classes, const Server& server, ITypeLib& library) {
    const std::wstring libraryKey = LR"(TypeLib\)" + textOf(server.libraryId);
    const std::wstring versionKey = libraryKey + L"\\" + versionText(server);
    classes.removeTree(versionKey + LR"(\0\)" + platformKey);
    classes.removeIfEmpty(versionKey + LR"(\0)");
    if (!classes.open(versionKey + LR"(\0)")) {
        classes.removeTree(versionKey);
    }
    classes.removeIfEmpty(libraryKey);
    for (const auto& marshalled : interfacesOf(library)) {
        classes.removeTree(LR"(Interface\)" + textOf(marshalled.id));
    }
}

void writeProgIds(const win::RegistryKey& classes, const ServerClass& made) {
    const std::wstring independent = made.progId;
    const std::wstring versioned = independent + L"." + std::to_wstring(made.version);
    for (const auto& progId : {independent, versioned}) {
        const win::RegistryKey key = classes.create(progId);
        key.set(L"", made.description);
        key.create(L"CLSID").set(L"", textOf(made.classId));
    }
    classes.create(independent + L"\\CurVer").set(L"", versioned);
}

void writeClass(const win::RegistryKey& classes, const Server& server, const ServerClass& made) {
    writeProgIds(classes, made);
    const win::RegistryKey key = classes.create(LR"(CLSID\)" + textOf(made.classId));
    key.set(L"", made.description);
    const win::RegistryKey inProcess = key.create(L"InprocServer32");
    inProcess.set(L"", module::path());
    inProcess.set(L"ThreadingModel", L"Apartment");
    key.create(L"ProgID").set(L"", std::wstring(made.progId) + L"." + std::to_wstring(made.version));
    key.create(L"VersionIndependentProgID").set(L"", made.progId);
    key.create(L"TypeLib").set(L"", textOf(server.libraryId));
    key.create(L"Version").set(L"", versionText(server));
    (void)key.create(L"Programmable");
    const win::RegistryKey categories = key.create(L"Implemented Categories");
    (void)categories.create(std::wstring(programmableCategory));
    if (made.traits.isControl) {
        (void)key.create(L"Control");
        (void)categories.create(std::wstring(controlCategory));
        const win::RegistryKey status = key.create(L"MiscStatus");
        status.set(L"", L"0");
        status.create(std::to_wstring(DVASPECT_CONTENT)).set(L"", std::to_wstring(made.traits.miscStatus));
    }
    if (made.traits.safeForScripts) {
        for (const auto& category : safeCategories) {
            (void)categories.create(std::wstring(category));
        }
    }
}

void removeClass(const win::RegistryKey& classes, const ServerClass& made) {
    const std::wstring independent = made.progId;
    classes.removeTree(independent + L"." + std::to_wstring(made.version));
    classes.removeTree(independent);
    classes.removeTree(LR"(CLSID\)" + textOf(made.classId));
}

}  // namespace

HRESULT registerServer(const Server& server, RegisterFor whom) noexcept {
    return guarded([&] {
        const win::RegistryKey classes = classesOf(whom);
        writeLibrary(classes, server, *module::typeLibrary());
        for (const auto& made : server.classes) {
            writeClass(classes, server, made);
        }
    });
}

HRESULT unregisterServer(const Server& server, RegisterFor whom) noexcept {
    return guarded([&] {
        const win::RegistryKey classes = classesOf(whom);
        removeLibrary(classes, server, *module::typeLibrary());
        for (const auto& made : server.classes) {
            removeClass(classes, made);
        }
        classes.removeIfEmpty(L"TypeLib");
        classes.removeIfEmpty(L"Interface");
        classes.removeIfEmpty(L"CLSID");
    });
}

}  // namespace telvar::com
