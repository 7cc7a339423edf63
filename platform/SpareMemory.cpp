#include "platform/SpareMemory.h"

#include <link.h>
#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <span>

namespace brimlow::platform {

namespace {

/// Code that was relocated in place must not be read from the file again.
bool hasTextRelocations(const dl_phdr_info& object) {
    for (const ElfW(Phdr) & segment : std::span(object.dlpi_phdr, object.dlpi_phnum)) {
        if (segment.p_type != PT_DYNAMIC)
            continue;
        const auto* entry = reinterpret_cast<const ElfW(Dyn)*>(object.dlpi_addr + segment.p_vaddr);
        for (; entry->d_tag != DT_NULL; ++entry)
            if (entry->d_tag == DT_TEXTREL
                || (entry->d_tag == DT_FLAGS && (entry->d_un.d_val & DF_TEXTREL)))
                return true;
    }
    return false;
}

int returnPages(dl_phdr_info* object, std::size_t, void*) {
    if (hasTextRelocations(*object))
        return 0;
    const std::uintptr_t page = ::sysconf(_SC_PAGESIZE);
    for (const ElfW(Phdr) & segment : std::span(object->dlpi_phdr, object->dlpi_phnum)) {
        if (segment.p_type != PT_LOAD || (segment.p_flags & PF_W))
            continue;
        const auto start = (object->dlpi_addr + segment.p_vaddr) & ~(page - 1);
        const auto end = object->dlpi_addr + segment.p_vaddr + segment.p_filesz;
        ::madvise(reinterpret_cast<void*>(start), end - start, MADV_DONTNEED);
    }
    return 0;
}

} // namespace

void returnSpareMemory() {
    ::malloc_trim(0);
    ::dl_iterate_phdr(returnPages, nullptr);
}

} // namespace brimlow::platform
