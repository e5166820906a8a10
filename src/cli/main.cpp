#include <exception>
#include <iostream>

#include "cli/run.h"
#include "os/program.h"

int main(int count, char** arguments) {
    try {
        telvar::os::prepareStandardStreams();
        return telvar::cli::run(telvar::os::programArguments(count, arguments), std::cin, std::cout, std::cerr);
    } catch (const std::exception& failure) {
        std::cerr << "telvar: " << failure.what() << '\n';
        return 2;
    }
}
