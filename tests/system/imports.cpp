// A library's calls of others go through a table of addresses, which is changed here. In contrast
// to functions of the same names in the test program, that leaves the calls of everybody else
// alone: of the tests, the C++ library, the C library and the sanitizers.
#include "system/imports.h"

#include <elf.h>
#include <link.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <vector>

namespace orvel_test {
namespace {

/// Where the library keeps the address of a thing that it imports.
struct Slot {
    std::string name;
    void** address;
};

/// What the dynamic section of a loaded library says, by tag.
class Dynamic {
public:
    Dynamic(ElfW(Addr) base, const ElfW(Dyn) * entries) : base_(base), entries_(entries) {}

    std::size_t number(ElfW(Sxword) tag) const {
        for (const ElfW(Dyn)* entry = entries_; entry->d_tag != DT_NULL; ++entry) {
            if (entry->d_tag == tag) return entry->d_un.d_val;
        }
        return 0;
    }

    /// The loader has made some addresses absolute, and some it has not.
    template <typename Thing>
    const Thing* address(ElfW(Sxword) tag) const {
        const ElfW(Addr) at = number(tag);
        return reinterpret_cast<const Thing*>(at < base_ ? base_ + at : at);
    }

    void add_slots(const ElfW(Rela) * relocations, std::size_t bytes,
                   std::vector<Slot>& slots) const {
        const auto* const symbols = address<ElfW(Sym)>(DT_SYMTAB);
        const auto* const names = address<char>(DT_STRTAB);
        for (std::size_t i = 0; i < bytes / sizeof *relocations; ++i) {
            const ElfW(Sym)& symbol = symbols[ELF64_R_SYM(relocations[i].r_info)];
            if (symbol.st_name == 0 || symbol.st_shndx != SHN_UNDEF) continue;
            slots.push_back({names + symbol.st_name,
                             reinterpret_cast<void**>(base_ + relocations[i].r_offset)});
        }
    }

private:
    ElfW(Addr) base_;
    const ElfW(Dyn) * entries_;
};

int add_slots_of(dl_phdr_info* object, std::size_t, void* result) {
    if (!std::strstr(object->dlpi_name, "libOrvelSDK")) return 0;
    std::vector<Slot>& slots = *static_cast<std::vector<Slot>*>(result);
    for (int i = 0; i < object->dlpi_phnum; ++i) {
        const ElfW(Phdr)& header = object->dlpi_phdr[i];
        if (header.p_type != PT_DYNAMIC) continue;
        const Dynamic dynamic(object->dlpi_addr, reinterpret_cast<const ElfW(Dyn)*>(
                                                     object->dlpi_addr + header.p_vaddr));
        dynamic.add_slots(dynamic.address<ElfW(Rela)>(DT_RELA), dynamic.number(DT_RELASZ), slots);
        dynamic.add_slots(dynamic.address<ElfW(Rela)>(DT_JMPREL), dynamic.number(DT_PLTRELSZ),
                          slots);
    }
    return 1;
}

const std::vector<Slot>& slots_of_library() {
    static const std::vector<Slot> slots = [] {
        std::vector<Slot> all;
        dl_iterate_phdr(add_slots_of, &all);
        return all;
    }();
    return slots;
}

/// Lets the slot be written, which the loader may have closed again.
void open_for_writing(void** slot) {
    const auto page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
    const auto at = reinterpret_cast<std::uintptr_t>(slot) / page * page;
    if (mprotect(reinterpret_cast<void*>(at), page, PROT_READ | PROT_WRITE) != 0) {
        throw std::runtime_error("the library's imports cannot be changed");
    }
}

}  // namespace

std::set<std::string> imports_of_library() {
    std::set<std::string> names;
    for (const Slot& slot : slots_of_library()) names.insert(slot.name);
    return names;
}

void replace_import(const std::string& name, void* function) {
    for (const Slot& slot : slots_of_library()) {
        if (slot.name != name) continue;
        open_for_writing(slot.address);
        *slot.address = function;
    }
}

}  // namespace orvel_test
