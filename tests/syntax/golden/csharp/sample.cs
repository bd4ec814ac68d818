using System;
#region Helpers
namespace Demo {
    /* Sums things
       up */
    public static class Sum {
        public static int Of(int[] xs) { var s = 0; foreach (var x in xs) s += x; return s; }
        public static string Name => "sum\t1"; // property
    }
}
#endregion
