#include "system/runtime_error.h"

#include <new>
#include <stdexcept>
#include <utility>

namespace marlowick {
namespace {

struct Row {
    int number;
    const char* description;
};

constexpr Row kDescriptions[] = {
    {error::kInvalidArgument, "Invalid procedure call or argument"},
    {error::kOverflow, "Overflow"},
    {error::kOutOfMemory, "Out of memory"},
    {error::kSubscript, "Subscript out of range"},
    {error::kTypeMismatch, "Type mismatch"},
    {error::kBadFileName, "Bad file name or number"},
    {error::kFileNotFound, "File not found"},
    {error::kFileAlreadyOpen, "File already open"},
    {error::kDeviceIo, "Device I/O error"},
    {error::kFileAlreadyExists, "File already exists"},
    {error::kDiskFull, "Disk full"},
    {error::kInputPastEnd, "Input past end of file"},
    {error::kBadRecordNumber, "Bad record number"},
    {error::kTooManyFiles, "Too many files"},
    {error::kPermissionDenied, "Permission denied"},
    {error::kPathFileAccess, "Path/File access error"},
    {error::kPathNotFound, "Path not found"},
    {error::kInvalidFormat, "Invalid file format"},
    {error::kInvalidPicture, "Invalid picture"},
};

}  // namespace

RuntimeError::RuntimeError(int number) : RuntimeError(number, errorDescription(number)) {}

RuntimeError::RuntimeError(int number, std::string description)
    : number_(number), description_(std::move(description)) {}

const char* errorDescription(int number) {
    for (const Row& row : kDescriptions) {
        if (row.number == number) {
            return row.description;
        }
    }
    return "Application-defined or object-defined error";
}

RuntimeError currentError() {
    try {
        throw;
    } catch (const RuntimeError& failure) {
        return failure;
    } catch (const std::bad_alloc&) {
        return RuntimeError(error::kOutOfMemory);
    } catch (const std::length_error&) {
        return RuntimeError(error::kOutOfMemory);
    } catch (...) {
        return RuntimeError(error::kInvalidArgument);
    }
}

}  // namespace marlowick
