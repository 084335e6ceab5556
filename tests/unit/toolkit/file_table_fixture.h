// A file table over a drive in memory.
#pragma once

#include "system/simulated/files.h"
#include "toolkit/file_table.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

class FileTableTest : public testing::Test {
protected:
    static constexpr int number = 7;
    static constexpr const char* path = "C:\\file.txt";
    static constexpr std::size_t buffer = 262144; // bytes read at a time

    FileTableTest() { drives.addMemoryDrive('C'); }

    void open(const std::string& content) {
        drives.addFile(path, content);
        files.open(number, path, toolkit::OpenMode::input);
    }
    std::vector<std::string> lines() {
        std::vector<std::string> all;
        while (!files.atEnd(number)) {
            all.push_back(files.readLine(number));
        }
        return all;
    }
    std::vector<std::string> fields() {
        std::vector<std::string> all;
        while (!files.atEnd(number)) {
            all.push_back(files.readField(number));
        }
        return all;
    }
    std::vector<std::string> fieldsOf(const std::string& content) {
        files.close(number);
        open(content);
        return fields();
    }
    std::vector<double> numbersOf(const std::string& content) {
        files.close(number);
        open(content);
        std::vector<double> all;
        while (!files.atEnd(number)) {
            all.push_back(files.readNumberField(number));
        }
        return all;
    }

    sys::simulated::Drives drives{"C:\\"};
    toolkit::FileTable files{drives};
};
