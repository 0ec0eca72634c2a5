#pragma once

/// The HTTP status codes (RFC 9110, section 15; RFC 4918, section 11; RFC 6585, section 4) that the
/// engine distinguishes. An unscoped enumeration, because a server may send any number.
namespace HttpStatus {

enum Code {
    OK = 200,
    Created = 201,
    NoContent = 204,
    MultiStatus = 207,
    MovedPermanently = 301,
    Found = 302,
    TemporaryRedirect = 307,
    PermanentRedirect = 308,
    BadRequest = 400,
    Unauthorized = 401,
    Forbidden = 403,
    NotFound = 404,
    MethodNotAllowed = 405,
    Conflict = 409,
    PreconditionFailed = 412,
    ContentTooLarge = 413,
    Locked = 423,
    TooManyRequests = 429,
    InternalServerError = 500,
    NotImplemented = 501,
    ServiceUnavailable = 503,
    InsufficientStorage = 507,
};

}  // namespace HttpStatus
