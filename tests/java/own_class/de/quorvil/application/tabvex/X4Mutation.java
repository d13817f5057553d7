package de.quorvil.application.tabvex;

/** Has two of the four setters, one of them private, and no constructor that could be run without arguments. */
public class X4Mutation {
    public static RuntimeException thrown;

    public String code = "as a constructor would leave it";
    public float value;
    public String subtypeAV;

    public X4Mutation(String code) {
        this.code = code;
    }

    void setCode(String code) {
        this.code = code;
        if (thrown != null) {
            throw thrown;
        }
    }

    private void setSubtypeAV(String subtypeAV) {
        this.subtypeAV = subtypeAV;
    }

    public void setValue(double value) { // not the one that is called
        this.value = (float) value;
    }
}
