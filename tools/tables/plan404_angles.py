"""The angles of a trigonometric series, each made once.

A term's angle is a sum of multiples of arguments, and its sine and cosine come by angle addition from
those of the multiples, in the order of the term. Terms that begin alike share that part. An argument
that is 0 has the sine 0 and the cosine 1: adding it changes nothing, so it is left out."""
import collections

Angles = collections.namedtuple("Angles", "arguments multiples opposites products of_terms")


def arranged(terms, moving):
    """Numbers the angles: 0 is the angle 0, then the arguments, their multiples (each the one before
    it and the argument itself), the opposites of multiples, and the sums of several. A pair of numbers
    is the two angles that are added; of_terms has the number of each term's angle."""
    terms = [tuple((m, a) for m, a in pairs if m != 0 and a in moving) for pairs in terms]
    highest = collections.Counter()
    for pairs in terms:
        for m, a in pairs:
            highest[a] = max(highest[a], abs(m))
    arguments = sorted(highest)
    number = {(): 0}
    for a in arguments:
        number[((1, a),)] = len(number)
    multiples = []
    for a in arguments:
        for m in range(2, highest[a] + 1):
            multiples.append((number[((m - 1, a),)], number[((1, a),)]))
            number[((m, a),)] = len(number)
    opposites = []
    for a in arguments:
        for m in sorted({-m for pairs in terms for m, b in pairs if b == a and m < 0}):
            opposites.append(number[((m, a),)])
            number[((-m, a),)] = len(number)
    products = []
    for pairs in terms:
        for length in range(2, len(pairs) + 1):
            if pairs[:length] not in number:
                products.append((number[pairs[:length - 1]], number[pairs[length - 1:length]]))
                number[pairs[:length]] = len(number)
    return Angles(arguments, multiples, opposites, products, [number[pairs] for pairs in terms])
