# Prints Google Benchmark's CSV file as a table. Each time is the shortest of all repetitions: processor time, or
# wall-clock time if the disk is involved.
BEGIN {
    FS = ","
    columns["Track"] = columns["Element"] = "100 1000 10000 100000 1000000"
    columns["Terrain"] = "256 512 1024 2048"
    columns["Environments"] = columns["Textures"] = "100 1000 10000"
    unit["Track"] = unit["Element"] = ", ns per node"
    unit["Terrain"] = ", ns per byte"
    unit["Environments"] = ", ns per environment"
    unit["Textures"] = ", ns per texture"
    columns["Window"] = columns["Program"] = "1"
}
$1 ~ /^"(Track|Element|Terrain|Environments|Textures|Window|Program)[^_]*(_time|s:[13])?"$/ {
    gsub(/"/, "")
    split($1, part, "/")
    row = part[1] "/" part[2]
    size = part[3]
    time = $1 ~ /real_time/ ? $3 : $4
    if (!(row in yardsticks))
        order[++rows] = row
    yardsticks[row] = $8
    bytes[part[1], size] = $11
    if ($12 > 0)
        counted[row] = time = $12
    if (!((row, size) in least) || time + 0 < least[row, size])
        least[row, size] = time + 0
}
function number(value) {
    return sprintf(value < 10 ? "%.2f" : value < 100 ? "%.1f" : "%.0f", value)
}
# Prints a line of the table: times without a yardstick, ratios with one. A size between two columns is shown in the
# later one.
function line(name, row, yardstick,    kind, count, column, i, size, value, large, n, x, y, sx, sy, sxx, sxy) {
    kind = substr(row, 1, index(row, "/") - 1)
    count = split(columns[kind], column, " ")
    printf "%-34s", name
    for (i = 1; i <= count; ++i) {
        if (!((kind, column[i]) in bytes))
            continue
        size = row ~ /smooth$/ && column[i] == 1000 ? 500 : column[i]
        value = ""
        if ((row, size) in least) {
            value = least[row, size]
            if (yardstick != "")
                value = (yardstick, size) in least ? value / least[yardstick, size] : ""
            else if (!(row in counted)) {
                large = size >= 1000 || row ~ /smooth$/
                x = log(size); y = log(value)
                if (large) { n += 1; sx += x; sy += y; sxx += x * x; sxy += x * y }
                value /= kind == "Terrain" ? bytes[kind, size] : size
            }
        }
        printf "%10s", value == "" ? "" : number(value)
    }
    if (n > 1)
        printf "    n^%.2f", (n * sxy - sx * sy) / (n * sxx - sx * sx) / (kind == "Terrain" ? 2 : 1)
    printf "\n"
}
END {
    for (r = 1; r <= rows; ++r) {
        row = order[r]
        kind = substr(row, 1, index(row, "/") - 1)
        if (kind != before) {
            printf "\n%-34s", kind unit[kind]
            for (i = 1; columns[kind] != "1" && i <= split(columns[kind], column, " "); ++i)
                if ((kind, column[i]) in bytes)
                    printf "%10s", column[i]
            print columns[kind] == "1" ? "" : "     order"
        }
        before = kind
        line(substr(row, length(kind) + 2), row, "")
        count = split(yardsticks[row], yardstick, " ")
        for (i = 1; i <= count; ++i)
            line("   / " yardstick[i], row, kind "/" yardstick[i])
    }
}
