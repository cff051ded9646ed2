$ALMANAC events --year -1537 --kind seasons --format json
