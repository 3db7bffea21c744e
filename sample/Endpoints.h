// The paths that the sample library answers.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include <boost/json/object.hpp>
#include <boost/json/value.hpp>

#include "Request.h"
#include "library/Library.h"

namespace sample {

namespace json = boost::json;

struct Endpoint {
    std::string_view method;
    std::string_view pattern; ///< "{id}", "{list}" and "{operation}" stand for any one word.
    /// Gives the answer's JSON, or throws RequestError.
    json::value (*handler)(Library&, const Request&);
    std::string (*bytes)(Library&, const Request&) = nullptr; ///< In place of the handler where no JSON is given.
};

using Endpoints = std::span<const Endpoint>;

// What each file of the families answers.
Endpoints accountEndpoints();
Endpoints profileEndpoints();
Endpoints teamsAndIntegrationsEndpoints();
Endpoints searchingEndpoints();
Endpoints readingEndpoints();
Endpoints listingEndpoints();
Endpoints filingEndpoints();
Endpoints editingEndpoints();
Endpoints removingEndpoints();
Endpoints grantsEndpoints();
Endpoints assetsEndpoints();
Endpoints usageEndpoints();
Endpoints ontologyEndpoints();
Endpoints skillsEndpoints();
Endpoints skillPackageEndpoints();
Endpoints skillsInUseEndpoints();

struct Response {
    unsigned status = 200;
    std::string body;
};

Response refusal(unsigned status, std::string_view message, json::object details = {});

/// Answers any request; a refusal is an answer too.
Response answer(Library& library, std::string_view method, std::string_view target, std::string_view body);

} // namespace sample
