-- OrvelSDK for LuaJIT, made at run time from the description. Names and arguments are those of C,
-- but nobody passes room for a reason: a failure is an error that tells it. Objects release
-- themselves. What could end the process by an exception is left out: its guarded form remains.
local ffi = require "ffi"
local orvel, raw, kept = {}, {}, setmetatable({}, {__mode = "k"})

local function lua_of(json) -- nearly Lua already: keys go into brackets, lists into braces
    local text = json:gsub("\\\\", "\\092"):gsub('\\"', "\\034") .. '""'
    return (text:gsub('([^"]*)("[^"]*")(:?)', function(between, word, colon)
        word = colon == ":" and "[" .. word .. "]=" or word
        return between:gsub("%[", "{"):gsub("%]", "}") .. word
    end):sub(1, -3))
end

local function define(what, name) ffi.cdef("typedef " .. what .. " " .. name) end

local function declared(each) -- "int x", "const void* reserved[4]", "int call(int x)"
    local name, list = each.type == "function" and "(*" .. each.name .. ")" or each.name, {}
    if not each.arguments then return ((each.c .. " " .. name):gsub("(%[%d+%]) (.*)", " %2%1")) end
    for i, argument in ipairs(each.arguments) do list[i] = declared(argument) end
    return each.returns.c .. " " .. name .. "(" .. table.concat(list, ", ") .. ")"
end

local function keep(object, needs) kept[object] = needs; return object end -- as long as it lives

local function call(f, ...)
    local given, why = {...}, ffi.new "char[512]"
    for i, each in ipairs(f.arguments) do
        if each.type == "buffer" then given[i], given[i + 1] = why, 512 end
        if each.ownership == "taken" then ffi.gc(given[i], nil) end
    end
    local result, told = raw[f.name](unpack(given, 1, #f.arguments)), f.returns
    if told.unit == "status" and result == -1 or told.free and result == nil then
        error(f.name .. " failed. " .. ffi.string(why), 3)
    end
    if told.type == "text" then return result ~= nil and ffi.string(result) or nil end
    return told.free and keep(ffi.gc(result, raw[told.free]), given) or result
end

local file = assert(io.open(os.getenv "ORVEL_API" or "/usr/share/orvelsdk/orvel_api.json"))
for _, library in ipairs(loadstring("return " .. lua_of(file:read "*a"))().libraries) do
    raw[library] = ffi.load(library.name)
    for _, each in ipairs(library.objects) do define("struct " .. each.name, each.name) end
    for _, enum in ipairs(library.enums) do
        define("int", enum.name)
        for _, each in ipairs(enum.values) do orvel[each.name] = each.value end
    end
    for _, each in ipairs(library.records) do
        local fields = {}
        for i, field in ipairs(each.fields) do fields[i] = declared(field) end
        define("struct {" .. table.concat(fields, "; ") .. ";}", each.name)
        orvel[each.name] = function(...) return keep(ffi.new(each.name, ...), {...}) end
    end
    for _, f in ipairs(library.functions) do
        ffi.cdef(declared(f))
        raw[f.name] = raw[library][f.name]
        orvel[f.name] = #f.raises == 0 and function(...) return call(f, ...) end or nil
    end
end
return orvel
