#include "app/window_module.h"

#ifdef __APPLE__
#include "app/window_program.h"
#else
#include <climits>
#include <dlfcn.h>
#include <iostream>
#include <string>
#include <unistd.h>
#endif

namespace frimbolate {

#ifdef __APPLE__

int runWindow(int argc, char* argv[]) { return frimbolateWindowProgram(argc, argv); }

#else

namespace {

/// The folder of the running program, with a final "/".
std::string programFolder() {
    std::string path(PATH_MAX, '\0');
    const ssize_t length = ::readlink("/proc/self/exe", path.data(), path.size());
    path.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
    return path.substr(0, path.rfind('/') + 1);
}

/// The module beside the program, as it is built, else where it is installed.
void* loadModule(std::string& error) {
    for (const std::string folder : {"", "../" FRIMBOLATE_MODULE_FOLDER "/"}) {
        const std::string path = programFolder() + folder + FRIMBOLATE_MODULE;
        if (::access(path.c_str(), F_OK) != 0)
            continue;
        if (void* module = ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL))
            return module;
        error = ::dlerror();
        return nullptr;
    }
    error = FRIMBOLATE_MODULE " is not installed";
    return nullptr;
}

} // namespace

int runWindow(int argc, char* argv[]) {
    std::string error;
    void* module = loadModule(error);
    using Program = int(int, char*[]);
    auto* program =
        module ? reinterpret_cast<Program*>(::dlsym(module, "frimbolateWindowProgram")) : nullptr;
    if (program)
        return program(argc, argv);
    std::cerr << "frimbolate: the window cannot be opened: " << error << std::endl;
    return 1;
}

#endif

} // namespace frimbolate
