#pragma once

/// The HTTP status codes (RFC 9110, section 15; RFC 4918, section 11; RFC 6585, section 4) that the
/// engine distinguishes or its tests send. An unscoped enumeration, because a server may send any
/// number: compare a status with these, but do not convert it to Code, and handle every other
/// number by its first digit.
namespace HttpStatus {

enum Code {
    OK = 200,
    Created = 201,
    NoContent = 204,
    /// The body is a list with a status of its own for each resource (RFC 4918, section 13): it
    /// does not say that anything has succeeded.
    MultiStatus = 207,
    /// The four redirects that HttpClient follows. 303 is not among them, because it changes the
    /// method.
    MovedPermanently = 301,
    Found = 302,
    TemporaryRedirect = 307,
    PermanentRedirect = 308,
    BadRequest = 400,
    Unauthorized = 401,
    Forbidden = 403,
    NotFound = 404,
    /// The response to MKCOL if the collection exists (RFC 4918, section 9.3.1).
    MethodNotAllowed = 405,
    /// The response to MKCOL, or PUT, if the parent collection does not exist (RFC 4918, sections
    /// 9.3.1 and 9.7.1). Dropbox responds with it to every error that is specific to an API
    /// function.
    Conflict = 409,
    /// The response to "If-None-Match: *" if the resource exists (RFC 9110, section 13.1.2).
    PreconditionFailed = 412,
    ContentTooLarge = 413,
    Locked = 423,
    /// May have the header field "Retry-After" (RFC 6585, section 4).
    TooManyRequests = 429,
    InternalServerError = 500,
    NotImplemented = 501,
    ServiceUnavailable = 503,
    InsufficientStorage = 507,
};

}  // namespace HttpStatus
