// Writes pages for the browser's tests: sample_pages FOLDER.
#include <filesystem>
#include <fstream>
#include <string>

#include "report/page.h"
#include "report/sample_ledger.h"

namespace
{
void write(const std::filesystem::path& folder, const std::string& name, const report::Ledger& ledger)
{
    std::ofstream file(folder / name, std::ios::binary);
    report::write_page(file, ledger, {}, folder);
}
}  // namespace

int main(int arguments, char** argument)
{
    if (arguments != 2) return 2;
    const std::filesystem::path folder = argument[1];
    const std::string hostile =
        "</script><script>document.title='owned'</script><!--<script>\"'&amp;<img src=x onerror="
        "\"document.title='owned'\">\xE2\x80\xAE"
        "gnp.exe\xE2\x81\xA6\x1b[31m\xFF\xC0\xE2\x80\xA8";
    std::filesystem::create_directories(folder / "hostile");
    write(folder, "sample.html", sample_ledger(folder));
    write(folder / "hostile", "hostile.html", hostile_ledger(folder / "hostile", hostile));
    report::Ledger unusable = sample_ledger(folder);
    unusable.out.nodes = 1;
    unusable.out.parts[0].mass = 2.5;
    unusable.out.sets.clear();
    write(folder, "unusable.html", unusable);
    std::filesystem::create_directories(folder / "long");
    write(folder / "long", "long.html", long_ledger(folder / "long", 50000));
    std::filesystem::create_directories(folder / "huge");
    write(folder / "huge", "huge.html", long_ledger(folder / "huge", 300000));
}
