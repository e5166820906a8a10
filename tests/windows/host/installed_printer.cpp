#include "installed_printer.h"

#include <windows.h>

#include <winspool.h>

#include <bit>
#include <filesystem>
#include <string_view>

#include "support/build_paths.h"
#include "support/temporary_folder.h"
#include "win/text.h"

namespace telvar::tests {

namespace {

constexpr wchar_t printerName[] = L"Test printer";
constexpr wchar_t driverName[] = L"Test PostScript";

// A4 and Letter at 600 dots per inch, with a quarter of an inch that cannot be printed on.
constexpr std::string_view description = R"PPD(*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*PCFileName: "TEST.PPD"
*Product: "(Test)"
*PSVersion: "(3010.000) 0"
*Manufacturer: "Test"
*ModelName: "Test PostScript"
*ShortNickName: "Test PostScript"
*NickName: "Test PostScript"
*LanguageLevel: "3"
*ColorDevice: True
*DefaultColorSpace: RGB
*FileSystem: False
*TTRasterizer: Type42
*DefaultResolution: 600dpi
*OpenUI *PageSize: PickOne
*OrderDependency: 10 AnySetup *PageSize
*DefaultPageSize: A4
*PageSize A4/A4: "<</PageSize [595 842]>> setpagedevice"
*PageSize Letter/Letter: "<</PageSize [612 792]>> setpagedevice"
*CloseUI: *PageSize
*OpenUI *PageRegion: PickOne
*OrderDependency: 10 AnySetup *PageRegion
*DefaultPageRegion: A4
*PageRegion A4/A4: "<</PageSize [595 842]>> setpagedevice"
*PageRegion Letter/Letter: "<</PageSize [612 792]>> setpagedevice"
*CloseUI: *PageRegion
*DefaultImageableArea: A4
*ImageableArea A4/A4: "18 18 577 824"
*ImageableArea Letter/Letter: "18 18 594 774"
*DefaultPaperDimension: A4
*PaperDimension A4/A4: "595 842"
*PaperDimension Letter/Letter: "612 792"
*DefaultFont: Courier
*Font Courier: Standard "(002.004S)" Standard ROM
*Font Helvetica: Standard "(001.006S)" Standard ROM
)PPD";

// The import library is not among those that every program of ours links.
template <class Function>
Function* spooler(const char* name) {
    static const HMODULE module = LoadLibraryW(L"winspool.drv");
    return std::bit_cast<Function*>(GetProcAddress(module, name));
}

std::wstring driverFolder() {
    std::wstring folder(MAX_PATH, L'\0');
    DWORD needed = 0;
    const auto ask = spooler<decltype(GetPrinterDriverDirectoryW)>("GetPrinterDriverDirectoryW");
    const BOOL told = ask(nullptr, nullptr, 1, reinterpret_cast<LPBYTE>(folder.data()),
                          static_cast<DWORD>(folder.size() * sizeof(wchar_t)), &needed);
    folder.resize(told ? folder.find(L'\0') : 0);
    return folder.empty() ? folder : folder + L"\\3";
}

}  // namespace

InstalledPrinter::InstalledPrinter()
    : file_((std::filesystem::path(TELVAR_BIN_DIR).parent_path() / "test-printer.ps").generic_string()) {
    install();
}

void InstalledPrinter::install() {
    const HMODULE library = GetModuleHandleW(L"ntdll.dll");
    if (library == nullptr || GetProcAddress(library, "wine_get_version") == nullptr) {
        refusal_ = "this system has its own ideas of printer drivers";
        return;
    }
    const std::wstring folder = driverFolder();
    std::filesystem::create_directories(folder);
    const std::wstring descriptionFile = folder + L"\\test.ppd";
    TemporaryFolder::write(win::narrow(descriptionFile), description);
    std::wstring driver = L"wineps.drv";
    std::wstring data = L"test.ppd";
    DRIVER_INFO_3W driverInfo{};
    driverInfo.cVersion = 3;
    driverInfo.pName = const_cast<wchar_t*>(driverName);
    driverInfo.pDriverPath = driver.data();
    driverInfo.pDataFile = const_cast<wchar_t*>(descriptionFile.c_str());
    driverInfo.pConfigFile = driver.data();
    if (!spooler<decltype(AddPrinterDriverExW)>("AddPrinterDriverExW")(
            nullptr, 3, reinterpret_cast<LPBYTE>(&driverInfo), APD_COPY_NEW_FILES | APD_COPY_FROM_DIRECTORY)) {
        refusal_ = "the driver is not taken, error " + std::to_string(GetLastError());
        return;
    }
    // The port is a file as the system below names it: without a drive.
    std::wstring port = win::wide(file_.substr(file_.find('/')));
    std::filesystem::remove(file_);
    PRINTER_INFO_2W printer{};
    printer.pPrinterName = const_cast<wchar_t*>(printerName);
    printer.pPortName = port.data();
    printer.pDriverName = const_cast<wchar_t*>(driverName);
    std::wstring processor = L"winprint";
    printer.pPrintProcessor = processor.data();
    std::wstring type = L"RAW";
    printer.pDatatype = type.data();
    printer_ = spooler<decltype(AddPrinterW)>("AddPrinterW")(nullptr, 2, reinterpret_cast<LPBYTE>(&printer));
    if (printer_ == nullptr) {
        refusal_ = "the printer is not taken, error " + std::to_string(GetLastError());
        return;
    }
    spooler<decltype(SetDefaultPrinterW)>("SetDefaultPrinterW")(printerName);
}

InstalledPrinter::~InstalledPrinter() {
    if (printer_ != nullptr) {
        spooler<decltype(DeletePrinter)>("DeletePrinter")(printer_);
        spooler<decltype(ClosePrinter)>("ClosePrinter")(printer_);
    }
}

std::string InstalledPrinter::output() const { return TemporaryFolder::read(file_); }

}  // namespace telvar::tests
