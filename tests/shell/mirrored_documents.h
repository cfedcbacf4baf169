// The outlined histogram of durations with room for negative counts in both kinds of document, 576
// by 384 device units on a screen of 96 dots per inch: two decades from 1 ms, in four bins, and
// counts up to 4 in ticks of 3. Of three terms the second is negative, and the third, at 0.2 s,
// lies beyond the axis and so has no handle.
//
// Every line was computed apart from the program, by a script that knows the axes, the bins and the
// exponentials, and writes each element in the order in which one draws: the horizontal axis one
// unit below the line of count zero, the axis of counts with each tick's mirror image behind it,
// the outline, and for each term its handle and its curve. A page begins at the bottom, and a point
// is 4/3 device units.
#pragma once

namespace ondrel {

/// Lines end in CR and LF.
inline constexpr char kMirroredInIllustrator[] = R"(%!PS-Adobe-2.0 EPSF-1.2
%%DocumentProcSets: Adobe_Illustrator_1.1 0 0
%%BoundingBox: 0 0 576 384
%%TemplateBox: 0 0 576 384
%%EndComments
%%EndProlog
1.000 0.000 1.000 0.000 k
/_Helvetica 10 10 0 0 z
[1 0 0 1 216.000 7.143]e
16(log Duration (s))t
T
0.000 1.000 1.000 0.000 K
72.000 191.000 m
504.000 191.000 l
0.25 w
S
0.000 1.000 1.000 0.000 K
72.000 191.000 m
72.000 183.000 l
0.25 w
S
1.000 0.000 1.000 0.000 k
/_Helvetica 10 10 0 0 z
[1 0 0 1 67.000 165.400]e
2(-3)t
T
0.000 1.000 1.000 0.000 K
208.281 191.000 m
208.281 185.880 l
0.25 w
S
0.000 1.000 1.000 0.000 K
288.000 191.000 m
288.000 185.880 l
0.25 w
S
0.000 1.000 1.000 0.000 K
288.000 191.000 m
288.000 183.000 l
0.25 w
S
1.000 0.000 1.000 0.000 k
/_Helvetica 10 10 0 0 z
[1 0 0 1 283.000 165.400]e
2(-2)t
T
0.000 1.000 1.000 0.000 K
424.281 191.000 m
424.281 185.880 l
0.25 w
S
0.000 1.000 1.000 0.000 K
504.000 191.000 m
504.000 185.880 l
0.25 w
S
0.000 1.000 1.000 0.000 K
504.000 191.000 m
504.000 183.000 l
0.25 w
S
1.000 0.000 1.000 0.000 k
/_Helvetica 10 10 0 0 z
[1 0 0 1 499.000 165.400]e
2(-1)t
T
1.000 0.000 1.000 0.000 k
/_Helvetica 10 10 0 0 z
[1 0 0 1 36.000 345.600]e
6(Counts)t
T
0.000 1.000 1.000 0.000 K
72.000 320.000 m
72.000 64.000 l
0.25 w
S
0.000 1.000 1.000 0.000 K
72.000 192.000 m
60.000 192.000 l
0.25 w
S
1.000 0.000 1.000 0.000 k
/_Helvetica 10 10 0 2 z
[1 0 0 1 55.543 192.000]e
1(0)t
T
0.000 1.000 1.000 0.000 K
72.000 192.000 m
60.000 192.000 l
0.25 w
S
1.000 0.000 1.000 0.000 k
/_Helvetica 10 10 0 2 z
[1 0 0 1 55.543 192.000]e
1(0)t
T
0.000 1.000 1.000 0.000 K
72.000 256.000 m
60.000 256.000 l
0.25 w
S
1.000 0.000 1.000 0.000 k
/_Helvetica 10 10 0 2 z
[1 0 0 1 55.543 256.000]e
1(3)t
T
0.000 1.000 1.000 0.000 K
72.000 128.000 m
60.000 128.000 l
0.25 w
S
1.000 0.000 1.000 0.000 k
/_Helvetica 10 10 0 2 z
[1 0 0 1 55.543 128.000]e
2(-3)t
T
0.000 1.000 1.000 0.000 K
72.000 320.000 m
60.000 320.000 l
0.25 w
S
1.000 0.000 1.000 0.000 k
/_Helvetica 10 10 0 2 z
[1 0 0 1 55.543 320.000]e
1(6)t
T
0.000 1.000 1.000 0.000 K
72.000 64.000 m
60.000 64.000 l
0.25 w
S
1.000 0.000 1.000 0.000 k
/_Helvetica 10 10 0 2 z
[1 0 0 1 55.543 64.000]e
2(-6)t
T
1.000 1.000 0.000 0.000 K
72.000 192.000 m
72.000 213.333 l
180.000 213.333 l
180.000 277.333 l
288.000 277.333 l
288.000 192.000 l
396.000 192.000 l
396.000 234.667 l
504.000 234.667 l
504.000 192.000 l
0.25 w
S
1.000 0.000 0.000 0.000 K
217.578 251.613 m
217.578 240.813 l
228.378 240.813 l
228.378 251.613 l
217.578 251.613 l
S
126.000 228.725 m
234.000 245.825 l
342.000 206.957 l
450.000 192.022 l
S
385.658 179.329 m
385.658 168.529 l
396.458 168.529 l
396.458 179.329 l
385.658 179.329 l
S
126.000 189.256 m
234.000 184.366 l
342.000 175.904 l
450.000 177.872 l
S
126.000 192.866 m
234.000 194.686 l
342.000 199.992 l
450.000 212.853 l
S
%%Trailer
)";

inline constexpr char kMirroredInEps[] = R"(%!PS-Adobe-3.0 EPSF-3.0
%%BoundingBox: 0 0 432 288
%%EndComments
%%EndProlog
30 30 translate
/right_show {
  dup
  stringwidth pop
  4 -1 roll exch sub
  3 -1 roll moveto
  show
} def
1.000 0.000 1.000 0.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
162.000 5.357 moveto
(log Duration (s)) show
0.000 1.000 1.000 0.000 setcmykcolor
54.000 143.250 moveto
378.000 143.250 lineto
0.25 setlinewidth
stroke
0.000 1.000 1.000 0.000 setcmykcolor
54.000 143.250 moveto
54.000 137.250 lineto
0.25 setlinewidth
stroke
1.000 0.000 1.000 0.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
50.250 124.050 moveto
(-3) show
0.000 1.000 1.000 0.000 setcmykcolor
156.211 143.250 moveto
156.211 139.410 lineto
0.25 setlinewidth
stroke
0.000 1.000 1.000 0.000 setcmykcolor
216.000 143.250 moveto
216.000 139.410 lineto
0.25 setlinewidth
stroke
0.000 1.000 1.000 0.000 setcmykcolor
216.000 143.250 moveto
216.000 137.250 lineto
0.25 setlinewidth
stroke
1.000 0.000 1.000 0.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
212.250 124.050 moveto
(-2) show
0.000 1.000 1.000 0.000 setcmykcolor
318.211 143.250 moveto
318.211 139.410 lineto
0.25 setlinewidth
stroke
0.000 1.000 1.000 0.000 setcmykcolor
378.000 143.250 moveto
378.000 139.410 lineto
0.25 setlinewidth
stroke
0.000 1.000 1.000 0.000 setcmykcolor
378.000 143.250 moveto
378.000 137.250 lineto
0.25 setlinewidth
stroke
1.000 0.000 1.000 0.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
374.250 124.050 moveto
(-1) show
1.000 0.000 1.000 0.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
27.000 259.200 moveto
(Counts) show
0.000 1.000 1.000 0.000 setcmykcolor
54.000 240.000 moveto
54.000 48.000 lineto
0.25 setlinewidth
stroke
0.000 1.000 1.000 0.000 setcmykcolor
54.000 144.000 moveto
45.000 144.000 lineto
0.25 setlinewidth
stroke
1.000 0.000 1.000 0.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
41.657 144.000
(0) right_show
0.000 1.000 1.000 0.000 setcmykcolor
54.000 144.000 moveto
45.000 144.000 lineto
0.25 setlinewidth
stroke
1.000 0.000 1.000 0.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
41.657 144.000
(0) right_show
0.000 1.000 1.000 0.000 setcmykcolor
54.000 192.000 moveto
45.000 192.000 lineto
0.25 setlinewidth
stroke
1.000 0.000 1.000 0.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
41.657 192.000
(3) right_show
0.000 1.000 1.000 0.000 setcmykcolor
54.000 96.000 moveto
45.000 96.000 lineto
0.25 setlinewidth
stroke
1.000 0.000 1.000 0.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
41.657 96.000
(-3) right_show
0.000 1.000 1.000 0.000 setcmykcolor
54.000 240.000 moveto
45.000 240.000 lineto
0.25 setlinewidth
stroke
1.000 0.000 1.000 0.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
41.657 240.000
(6) right_show
0.000 1.000 1.000 0.000 setcmykcolor
54.000 48.000 moveto
45.000 48.000 lineto
0.25 setlinewidth
stroke
1.000 0.000 1.000 0.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
41.657 48.000
(-6) right_show
1.000 1.000 0.000 0.000 setcmykcolor
54.000 144.000 moveto
54.000 160.000 lineto
135.000 160.000 lineto
135.000 208.000 lineto
216.000 208.000 lineto
216.000 144.000 lineto
297.000 144.000 lineto
297.000 176.000 lineto
378.000 176.000 lineto
378.000 144.000 lineto
0.25 setlinewidth
stroke
1.000 0.000 0.000 0.000 setcmykcolor
163.183 188.710 moveto
163.183 180.610 lineto
171.283 180.610 lineto
171.283 188.710 lineto
163.183 188.710 lineto
stroke
94.500 171.544 moveto
175.500 184.369 lineto
256.500 155.217 lineto
337.500 144.016 lineto
stroke
289.244 134.497 moveto
289.244 126.397 lineto
297.344 126.397 lineto
297.344 134.497 lineto
289.244 134.497 lineto
stroke
94.500 141.942 moveto
175.500 138.275 lineto
256.500 131.928 lineto
337.500 133.404 lineto
stroke
94.500 144.649 moveto
175.500 146.014 lineto
256.500 149.994 lineto
337.500 159.640 lineto
stroke
showpage
%%EOF
)";

}  // namespace ondrel
