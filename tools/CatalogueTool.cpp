#include "CatalogueTool.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string_view>

#include "CQvxException.h"
#include "CatalogueFile.h"
#include "CatalogueMerge.h"
#include "CataloguePrinter.h"
#include "TextCodec.h"
#include "ToolError.h"
#include "ToolFiles.h"
#include "_Velmora/CQvxMaterial.h"
#include "_Velmora/CQvxSezMaterialu.h"
#include "_Velmora/CatalogueCsv.h"
#include "_Velmora/CatalogueCsvList.h"

namespace {

constexpr std::string_view kProgram = "velmora-katalog";

constexpr std::string_view kHelp =
    R"(velmora-katalog – převody, výpis, kontrola a slučování katalogů materiálů potrubí (*.qxp)

Použití:
  velmora-katalog csv2qxp <složka CSV> <katalog.qxp>
      Převede listy materialy.csv a profily.csv ze složky na soubor katalogu.
  velmora-katalog qxp2csv <katalog.qxp> <složka CSV>
      Zapíše katalog do listů materialy.csv a profily.csv ve složce (chybějící složku založí).
  velmora-katalog print <katalog.qxp>
      Vypíše katalog v čitelné podobě: materiály s jejich údaji a tabulkou profilů.
  velmora-katalog validate <katalog.qxp | složka CSV>
      Zkontroluje soubor katalogu (chybu ohlásí s číslem bajtu) nebo listy CSV (s číslem řádku).
  velmora-katalog merge <cíl.qxp> <zdroj.qxp> --overwrite=yes|no [--output=<výsledek.qxp>]
      Načte do cílového katalogu zdrojový, jako to dělá program. Materiál, který v cíli už je
      a liší se, se přepíše údaji ze zdroje (yes), nebo zůstane (no); chybějící profily se mu
      doplní vždy. Výsledek se zapíše do cíle, nebo do souboru --output.
  velmora-katalog --help
      Vypíše tuto nápovědu.

Listy CSV jsou v UTF-8 se záhlavím, oddělovač je středník (čte se i čárka); popis sloupců je
v data/README.md. Výstupní soubor vznikne celý, nebo vůbec: zapisuje se do dočasného souboru
vedle cíle, který pak cíl nahradí.

Návratový kód: 0 hotovo, 1 chybný vstup (nic se nezapsalo), 2 chybné použití.
)";

class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The operands and --name=value options after the command word.
struct Invocation {
    std::vector<std::filesystem::path> operands;
    std::map<std::string, std::string> options;

    std::optional<std::string> Option(const std::string& name) const {
        const auto found = options.find(name);
        if (found == options.end()) return std::nullopt;
        return found->second;
    }
};

struct CommandEntry {
    std::string_view name;
    std::string_view operands;  // for messages: "<složka CSV> <katalog.qxp>"
    std::size_t operandCount;
    std::vector<std::string_view> options;
    std::function<int(const Invocation&, std::ostream&, std::ostream&)> run;
};

std::string Quoted(const std::filesystem::path& path) {
    return "„" + PathText(path) + "“";
}

std::size_t ProfileCount(const CQvxSezMaterialu& list) {
    std::size_t count = 0;
    for (const auto& [name, material] : list.Materials()) count += material->Profiles().size();
    return count;
}

std::string Counts(const CQvxSezMaterialu& list) {
    return "materiálů " + std::to_string(list.Materials().size()) + ", profilů " + std::to_string(ProfileCount(list));
}

// The sheets of a folder as a list; problems are reported and end in ToolError.
void ReadCsvInto(const std::filesystem::path& folder, CQvxSezMaterialu& list, std::ostream& err) {
    const CatalogueCsvContent content = ReadCatalogueCsv(ReadCsvFolder(folder));
    if (!content.problems.empty()) {
        err << kProgram << ": chyby v listech ve složce " << Quoted(folder) << ":\n";
        for (const CatalogueCsvProblem& problem : content.problems) err << "  " << problem.Describe() << '\n';
        throw ToolError("Listy ve složce " + Quoted(folder) +
                        " nelze převést, počet chyb: " + std::to_string(content.problems.size()) + ".");
    }
    for (const CsvMaterialRecord& material : content.materials) {
        try {
            AddMaterial(material, list);
        } catch (const CQvxException& failure) {
            throw ToolError("Materiál „" + ToUtf8(material.fields.uniqueName) + "“ ve složce " + Quoted(folder) +
                            " nelze převést: " + FailureText(failure) + ".");
        }
    }
}

int ConvertCsvToCatalogue(const Invocation& call, std::ostream& out, std::ostream& err) {
    const std::filesystem::path& target = call.operands[1];
    CQvxSezMaterialu list;
    try {
        ReadCsvInto(call.operands[0], list, err);
    } catch (const ToolError& failure) {
        throw ToolError(std::string(failure.what()) + " Katalog " + Quoted(target) + " nebyl zapsán.");
    }
    WriteWholeFile(target, CatalogueFileBytes(list));
    out << "Zapsán katalog " << Quoted(target) << ": " << Counts(list) << ".\n";
    return kExitDone;
}

int ConvertCatalogueToCsv(const Invocation& call, std::ostream& out, std::ostream&) {
    const std::filesystem::path& folder = call.operands[1];
    CQvxSezMaterialu list;
    ReadCatalogueFile(call.operands[0], list);
    CatalogueCsvSheets sheets;
    try {
        sheets = WriteCatalogueCsv(MaterialRecords(list));
    } catch (const CatalogueCsvExportError& failure) {
        throw ToolError(std::string(failure.what()) + " Listy nebyly zapsány.");
    }
    WriteCsvFolder(folder, sheets);
    out << "Zapsány listy " << kMaterialsSheetName << " a " << kProfilesSheetName << " do složky " << Quoted(folder)
        << ": " << Counts(list) << ".\n";
    return kExitDone;
}

int Print(const Invocation& call, std::ostream& out, std::ostream&) {
    CQvxSezMaterialu list;
    ReadCatalogueFile(call.operands[0], list);
    PrintCatalogue(list, PathText(call.operands[0]), out);
    return kExitDone;
}

int Validate(const Invocation& call, std::ostream& out, std::ostream& err) {
    const std::filesystem::path& path = call.operands[0];
    CQvxSezMaterialu list;
    std::error_code ignored;
    if (std::filesystem::is_directory(path, ignored)) {
        ReadCsvInto(path, list, err);
        out << "Listy ve složce " << Quoted(path) << " jsou v pořádku: " << Counts(list) << ".\n";
        return kExitDone;
    }
    const std::uint64_t used = ReadCatalogueFile(path, list);
    const std::uint64_t size = std::filesystem::file_size(path, ignored);
    if (!ignored && used < size) {
        throw ToolError("Soubor " + Quoted(path) + " má za koncem katalogu přebytečné bajty (počet " +
                        std::to_string(size - used) + ", od bajtu " + std::to_string(used) + ").");
    }
    out << "Soubor " << Quoted(path) << " je v pořádku: " << Counts(list) << ".\n";
    return kExitDone;
}

int Merge(const Invocation& call, std::ostream& out, std::ostream& err) {
    const std::string answer = call.Option("overwrite").value_or("");
    if (answer != "yes" && answer != "no")
        throw UsageError("merge potřebuje volbu --overwrite=yes nebo --overwrite=no.");
    const std::filesystem::path& target = call.operands[0];
    const std::filesystem::path output = call.Option("output") ? ToPath(FromUtf8(*call.Option("output"))) : target;

    CQvxSezMaterialu list;
    ReadCatalogueFile(target, list);
    const MergeReport report = MergeCatalogueFile(call.operands[1], list, answer == "yes", err);
    WriteWholeFile(output, CatalogueFileBytes(list));
    for (const std::u16string& name : report.overwritten) out << "Přepsán materiál „" << ToUtf8(name) << "“.\n";
    for (const std::u16string& name : report.kept) out << "Ponechán materiál „" << ToUtf8(name) << "“.\n";
    out << "Zapsán katalog " << Quoted(output) << ": " << Counts(list) << " (nových materiálů " << report.added
        << ", přepsaných " << report.overwritten.size() << ", ponechaných " << report.kept.size() << ").\n";
    return kExitDone;
}

const std::vector<CommandEntry>& Commands() {
    static const std::vector<CommandEntry> commands = {
        {"csv2qxp", "<složka CSV> <katalog.qxp>", 2, {}, ConvertCsvToCatalogue},
        {"qxp2csv", "<katalog.qxp> <složka CSV>", 2, {}, ConvertCatalogueToCsv},
        {"print", "<katalog.qxp>", 1, {}, Print},
        {"validate", "<katalog.qxp | složka CSV>", 1, {}, Validate},
        {"merge",
         "<cíl.qxp> <zdroj.qxp> --overwrite=yes|no [--output=<výsledek.qxp>]",
         2,
         {"overwrite", "output"},
         Merge},
    };
    return commands;
}

Invocation Parse(const CommandEntry& command, std::span<const std::u16string> words) {
    Invocation call;
    for (const std::u16string& word : words) {
        const std::string text = ToUtf8(word);
        if (!text.starts_with("--")) {
            call.operands.push_back(ToPath(word));
            continue;
        }
        const std::size_t equals = text.find('=');
        const std::string name = text.substr(2, equals == std::string::npos ? std::string::npos : equals - 2);
        if (equals == std::string::npos ||
            std::find(command.options.begin(), command.options.end(), name) == command.options.end()) {
            throw UsageError("neznámá volba " + text + " příkazu " + std::string(command.name) + ".");
        }
        call.options[name] = text.substr(equals + 1);
    }
    if (call.operands.size() != command.operandCount) {
        throw UsageError("příkaz " + std::string(command.name) + " se píše: " + std::string(kProgram) + " " +
                         std::string(command.name) + " " + std::string(command.operands));
    }
    return call;
}

}  // namespace

int RunCatalogueTool(const std::vector<std::u16string>& arguments, std::ostream& out, std::ostream& err) {
    if (arguments.empty()) {
        err << kHelp;
        return kExitBadUsage;
    }
    const std::string word = ToUtf8(arguments[0]);
    if (word == "--help" || word == "-h") {
        out << kHelp;
        return kExitDone;
    }
    try {
        const auto& commands = Commands();
        const auto command =
            std::find_if(commands.begin(), commands.end(), [&](const CommandEntry& entry) { return entry.name == word; });
        if (command == commands.end()) throw UsageError("neznámý příkaz " + word + ".");
        return command->run(Parse(*command, std::span(arguments).subspan(1)), out, err);
    } catch (const UsageError& failure) {
        err << kProgram << ": " << failure.what() << "\nNápověda: " << kProgram << " --help\n";
        return kExitBadUsage;
    } catch (const ToolError& failure) {
        err << kProgram << ": " << failure.what() << '\n';
        return kExitBadInput;
    }
}
