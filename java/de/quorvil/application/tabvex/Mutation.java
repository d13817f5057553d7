package de.quorvil.application.tabvex;

import java.util.Objects;

/**
 * What the mutations of all record types have: a code with an amount, or with two texts. The library makes objects of
 * the classes below without running a constructor and calls the setters, which it looks up by name and type.
 */
abstract class Mutation {
    private String code;
    private float value;
    private String subtype;
    private String subtypeAV;

    /** The code of the mutation, 1 to 3 characters, such as "EM". */
    public String getCode() {
        return code;
    }

    public void setCode(String code) {
        this.code = code;
    }

    /** The amount, as far as a float holds it; -1 for a mutation that has texts instead. */
    public float getValue() {
        return value;
    }

    public void setValue(float value) {
        this.value = value;
    }

    /** The first text, at most 2 characters; "" for a mutation that has an amount instead. */
    public String getSubtype() {
        return subtype;
    }

    public void setSubtype(String subtype) {
        this.subtype = subtype;
    }

    /** The second text, at most 10 characters; "" for a mutation that has an amount instead. */
    public String getSubtypeAV() {
        return subtypeAV;
    }

    public void setSubtypeAV(String subtypeAV) {
        this.subtypeAV = subtypeAV;
    }

    /** Equal are mutations of the same record type with the same code, amount and texts. */
    @Override
    public final boolean equals(Object other) {
        if (this == other) {
            return true;
        }
        if (other == null || getClass() != other.getClass()) {
            return false;
        }
        Mutation that = (Mutation) other;
        return Float.compare(value, that.value) == 0 && Objects.equals(code, that.code)
                && Objects.equals(subtype, that.subtype) && Objects.equals(subtypeAV, that.subtypeAV);
    }

    @Override
    public final int hashCode() {
        return Objects.hash(code, value, subtype, subtypeAV);
    }

    @Override
    public final String toString() {
        return getClass().getSimpleName() + "[code=" + code + ", value=" + value + ", subtype=" + subtype
                + ", subtypeAV=" + subtypeAV + "]";
    }
}
